#include "editor/document/photograph_file.h"

#include "editor/document/picture_files.h"
#include "platform/base/error.h"
#include "platform/picture/lossless_turn.h"
#include "platform/picture/picture.h"
#include "platform/picture/picture_tags.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize smallest(1, 1);
}  // namespace

PhotographFile photographFile(const QImage& picture, const QByteArray& profile, const QByteArray& photograph,
                              std::optional<Orientation> turn) {
    const PictureTags tags(photograph);
    std::optional<QByteArray> turned;
    if (turn) turned = turnedJpeg(photograph, composed(tags.orientation(), *turn));
    PhotographFile file{turned ? *turned : encodeJpeg(picture, jpegQuality, profile), picture.size(),
                        turned.has_value()};
    if (turned) file.pixels = LoadPicture(*turned, u"picture"_s, smallest).pixels();
    file.hasLostTags = !attempt([&] { file.bytes = tags.in(file.bytes); });
    return file;
}
