#include "editor/document/photograph_file.h"

#include "editor/document/picture_files.h"
#include "platform/base/error.h"
#include "platform/picture/lossless_turn.h"
#include "platform/picture/picture.h"
#include "platform/picture/picture_tags.h"

namespace {

std::optional<PhotographFile> turnedFile(const QByteArray& photograph, const PictureTags& tags, Orientation turn) {
    const auto turned = turnedJpeg(photograph, composed(tags.orientation(), turn));
    if (!turned || tags.isUnreadable()) return {};
    try {
        const QByteArray bytes = tags.in(*turned);
        constexpr QSize smallest(1, 1);
        return PhotographFile{bytes, LoadPicture(bytes, QStringLiteral("picture"), smallest).pixels(), true};
    } catch (const Error&) {
        return {};
    }
}

}  // namespace

PhotographFile photographFile(const QImage& picture, const QByteArray& profile, const QByteArray& photograph,
                              std::optional<Orientation> turn) {
    const PictureTags tags(photograph);
    if (turn)
        if (auto turned = turnedFile(photograph, tags, *turn)) return *turned;
    PhotographFile file{encodeJpeg(picture, jpegQuality, profile), picture.size()};
    file.hasLostTags = tags.isUnreadable() || !attempt([&] { file.bytes = tags.in(file.bytes); });
    return file;
}
