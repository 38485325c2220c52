#pragma once

#include <QByteArray>
#include <QStringView>

/// A page as the bytes of its file: single bytes like all our text files, and a numeric reference for each character
/// that those lack. Half a pair of surrogates becomes the reference of the replacement character.
QByteArray toHtmlBytes(QStringView page);
