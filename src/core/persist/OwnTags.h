#pragma once

#include <QByteArrayView>
#include <QStringView>

/// The tags by which the project file is read. A value that stands in the file as it is must hold none of them: it
/// would be found in the place of the field or the block that it belongs to.
namespace OwnTags {

/// Where the first one stands in the value, opening or closing and in either case; -1 for none.
qsizetype firstIn(QStringView value);

}  // namespace OwnTags
