#include "soak/fingerprints.h"

#include "catalogue/picture_field.h"

#include <QCryptographicHash>
#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

QString fingerprintOf(const QByteArray& bytes) {
    constexpr int length = 16;
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().left(length));
}

QByteArray asStored(const QByteArray& file) {
    return file + QByteArray(file.size() / pictureChunk + 1, '\0');
}

QString faultOfPicture(const QByteArray& bytes) {
    if (bytes.startsWith("BM")) {
        constexpr int sizeAt = 2, header = 54;
        const bool whole = bytes.size() >= header && qFromLittleEndian<quint32>(bytes.data() + sizeAt) <= bytes.size();
        return whole ? QString() : u"a bitmap that ends early"_s;
    }
    if (!bytes.startsWith("\xFF\xD8")) return u"no picture (%1 bytes)"_s.arg(bytes.size());
    qsizetype end = bytes.size();
    while (end > 0 && bytes[end - 1] == '\0') --end;
    return bytes.first(end).endsWith("\xFF\xD9") ? QString() : u"a JPEG that ends early"_s;
}
