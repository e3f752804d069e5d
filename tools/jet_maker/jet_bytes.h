#pragma once

#include <QByteArray>
#include <QtEndian>
#include <array>

namespace jet {

template <typename Number>
QByteArray bytesOf(Number number) {
    const Number stored = qToLittleEndian(number);
    return {reinterpret_cast<const char*>(&stored), sizeof stored};
}

template <typename Number>
void put(QByteArray& page, qsizetype place, Number number) {
    page.replace(place, qsizetype{sizeof number}, bytesOf(number));
}

/// RC4, which hides and shows alike.
void encode(QByteArray& bytes, qsizetype from, qsizetype count, quint32 key);

/// UTF-16.
QByteArray wide(const QString& words);

/// A text in the code page of a Jet 3 file.
QByteArray narrow(const QString& words, int codePage);

/// A number of up to 28 digits without its point.
struct ScaledNumber {
    bool isNegative = false;
    std::array<quint32, 4> words{};  ///< The highest first.
};
ScaledNumber scaled(const QString& number, int scale);

}  // namespace jet
