#include "catalogue/picture_hashes.h"

#include "platform/base/error.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

Fingerprint PictureHashes::of(const StoredValue& picture) const {
    const auto kept = hashes_.of(picture.id());
    return kept ? Fingerprint{kept->length, kept->sha256} : Fingerprint();
}

KnownPictures::KnownPictures(const Database& catalogue, const QString& album, GoesOn goesOn)
    : goesOn_(std::move(goesOn)) {
    const ValueHashes hashes(catalogue);
    hashes.each(album, u"图片"_s, [this](qint64 length, const QByteArray& sha256) {
        prints_.insert({length, sha256});
        lengths_.insert(length);
    });
    unmeasured_ = hashes.without(album, u"图片"_s);
}

bool KnownPictures::hasLength(qint64 length) {
    if (lengths_.contains(length)) return true;
    measure();
    return lengths_.contains(length);
}

const QSet<qint64>& KnownPictures::lengths() {
    measure();
    return lengths_;
}

bool KnownPictures::has(const Fingerprint& print) {
    measure();
    read(print.length);
    return prints_.contains(print);
}

/// A picture that cannot be read is not known.
void KnownPictures::measure() {
    for (const StoredValue& picture : std::exchange(unmeasured_, {})) {
        if (!goesOn_()) return;
        attempt([&] {
            const qint64 length = lengthWithoutZeros(picture);
            unread_.insert(length, picture);
            lengths_.insert(length);
        });
    }
}

void KnownPictures::read(qint64 length) {
    for (const StoredValue& picture : unread_.values(length))
        attempt([&] { prints_.insert(fingerprintOf(picture, goesOn_)); });
    unread_.remove(length);
}
