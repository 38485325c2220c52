#pragma once

#include <QList>
#include <QString>

/// What makes the desktop open project files with this program.
struct RegistryValue {
  QString key;
  QString value;
};

/// The default values under the class root: the extension points to the product, whose open command holds the
/// program and the file, both quoted.
QList<RegistryValue> associationValues(const QString& extension, const QString& program, const QString& product);

/// Registers the association where the platform keeps such a registry; elsewhere the installed package does it and
/// this does nothing. A blank product is logged and not registered.
void registerFileAssociation(const QString& extension, const QString& program, const QString& product);
