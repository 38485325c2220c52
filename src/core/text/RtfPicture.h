#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QMargins>
#include <QSize>
#include <QtGlobal>

#include <optional>

/// What the head of a \pict group says. The fields are called as the control words are.
struct RtfPicture {
  enum class Kind : quint8 {
    Other,  ///< \macpict, \wbitmap, ..., or none stated
    Png,
    Jpeg,
    Bitmap,    ///< \dibitmap: device-independent, without a file's head
    Metafile,  ///< \wmetafile
    Enhanced   ///< \emfblip
  };

  Kind kind = Kind::Other;
  bool isBinary = false;  ///< The data are the bytes themselves, from \bin, and no digits.
  qint32 picw = 0;        ///< Hundredths of a millimetre in a metafile, else pixels.
  qint32 pich = 0;
  qint32 picwgoal = 0;  ///< Twips, as are pichgoal and the cropping.
  qint32 pichgoal = 0;
  qint32 picscalex = 100;  ///< Percent.
  qint32 picscaley = 100;
  qint32 piccropl = 0;
  qint32 piccropt = 0;
  qint32 piccropr = 0;
  qint32 piccropb = 0;
  /// Into the bytes that were searched. Digits go on to the end of those: only decoding finds where they end.
  QByteArrayView data;
};

/// The picture of a group, given without its outer braces and its \*: \pict itself, or what may hold one, such as
/// \shppict, \object and \shp, followed by other groups or not. Where there are several, the first that has data of a
/// kind that can be shown, else the first. Linear for any bytes, and reads no digits of the picture that it gives.
std::optional<RtfPicture> findRtfPicture(QByteArrayView group);

/// The picture's file. Digits are read up to a brace or backslash; what is no digit is passed over, an odd one dropped.
QByteArray rtfPictureBytes(const RtfPicture& picture);
/// The first bytes of it, without a look at the rest.
QByteArray rtfPictureHead(const RtfPicture& picture, qsizetype bytes);

/// What is cut off the goal size, in twips. Cropping that would add something or leave nothing counts as none.
QMargins rtfPictureCrop(const RtfPicture& picture);
/// The goal size cropped, then scaled, in twips; empty when it isn't stated. Not limited.
QSize rtfPictureSize(const RtfPicture& picture);
