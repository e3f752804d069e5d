#include "jet_bytes.h"

#include <iconv.h>

#include <numeric>
#include <utility>

namespace jet {

void encode(QByteArray& bytes, qsizetype from, qsizetype count, quint32 key) {
    const QByteArray keyBytes = bytesOf(key);
    std::array<quint8, 256> state{};
    std::iota(state.begin(), state.end(), quint8{0});
    quint8 j = 0;
    for (size_t i = 0; i < state.size(); ++i) {
        j = quint8(j + state[i] + quint8(keyBytes[qsizetype(i % 4)]));
        std::swap(state[i], state[j]);
    }
    j = 0;
    quint8 i = 0;
    for (qsizetype at = from; at < from + count; ++at) {
        j = quint8(j + state[++i]);
        std::swap(state[i], state[j]);
        bytes[at] = char(bytes[at] ^ state[quint8(state[i] + state[j])]);
    }
}

QByteArray wide(const QString& words) {
    QByteArray bytes;
    for (const QChar letter : words) bytes += bytesOf(letter.unicode());
    return bytes;
}

QByteArray narrow(const QString& words, int codePage) {
    QByteArray from = words.toUtf8();
    QByteArray bytes(from.size(), '\0');
    char* in = from.data();
    char* out = bytes.data();
    auto left = size_t(from.size());
    auto room = size_t(bytes.size());
    const iconv_t converter = iconv_open(("CP" + QByteArray::number(codePage)).constData(), "UTF-8");
    iconv(converter, &in, &left, &out, &room);
    iconv_close(converter);
    if (left != 0) qFatal("\"%s\" is no text of code page %d.", from.constData(), codePage);
    bytes.chop(qsizetype(room));
    return bytes;
}

ScaledNumber scaled(const QString& number, int scale) {
    const qsizetype point = number.indexOf(u'.');
    const qsizetype digitsBehind = point < 0 ? 0 : number.size() - point - 1;
    ScaledNumber result{number.startsWith(u'-'), {}};
    for (const QChar digit : number + QString(scale - digitsBehind, u'0')) {
        if (!digit.isDigit()) continue;
        auto carry = quint64(digit.digitValue());
        for (size_t word = result.words.size(); word-- > 0;) {
            carry += quint64{result.words[word]} * 10;
            result.words[word] = quint32(carry);
            carry >>= 32;
        }
    }
    return result;
}

}  // namespace jet
