#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <variant>

/// A value of a field: Null, truth value, 32-bit integer, single- or double-precision number, text, date and time, or
/// bytes. The conversions below follow what a form expects; a Null (except in `textOr`), an unsuitable text, and bytes
/// as anything else throw `Error`.
class FieldValue {
  public:
    using Storage = std::variant<std::monostate, bool, qint32, float, double, QString, QDateTime, QByteArray>;

    FieldValue() = default;
    FieldValue(bool value) : storage_(value) {}
    FieldValue(qint32 value) : storage_(value) {}
    FieldValue(float value) : storage_(value) {}
    FieldValue(double value) : storage_(value) {}
    FieldValue(QString value) : storage_(std::move(value)) {}
    FieldValue(QDateTime value) : storage_(std::move(value)) {}
    FieldValue(QByteArray value) : storage_(std::move(value)) {}
    template <typename T>
    FieldValue(T*) = delete;

    bool isNull() const { return std::holds_alternative<std::monostate>(storage_); }
    const Storage& storage() const { return storage_; }

    /// Numbers in their plain form, dates as `2003-10-01 12:30:00` (without the time when it is midnight), truth values
    /// as `True` and `False`.
    QString toText() const;
    /// `toText`, or `fallback` for a Null.
    QString textOr(const QString& fallback = {}) const;
    /// Texts are read with their thousands commas; a fraction is rounded, halves to even.
    qint32 toInteger() const;
    double toDouble() const;
    bool toBool() const;
    QDateTime toDate() const;
    QByteArray toBytes() const;

    bool operator==(const FieldValue& other) const = default;

  private:
    Storage storage_;
};
