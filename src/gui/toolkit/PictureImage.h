#pragma once

#include "core/text/RtfPicture.h"

#include <QImage>
#include <QSize>

/// How large a picture is shown, in twips, without decoding it: as the text states it, else as its own head does, else
/// small. Never empty, and never larger than a large page.
QSize pictureSize(const RtfPicture& picture);

/// The picture, cropped; null when it can't be shown, as drawings can't, or would take too much memory. Very large
/// photographs come smaller than they are.
QImage pictureImage(const RtfPicture& picture);
