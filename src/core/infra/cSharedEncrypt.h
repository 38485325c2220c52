#pragma once

#include <QString>

/// Keeps a password in the settings from being read over a shoulder. It is no secret to anybody who looks for it.
class cSharedEncrypt {
 public:
  /// Each character becomes the one 100 further on.
  static QString Encrypt(const QString& text);
  /// Whether Decrypt brings the text back: characters 29 to 155 alone do.
  static bool bringsBack(const QString& text);
};

class cSharedDecrypt {
 public:
  /// Text whose first character isn't above 128 was never scrambled and stays.
  static QString Decrypt(const QString& text);
};
