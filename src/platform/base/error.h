#pragma once

#include <QByteArray>
#include <QString>
#include <exception>
#include <utility>

/// The one exception of the platform rooms. `text` says in plain Chinese what failed, and with which file, table or
/// column; it is fit for a message box.
class Error : public std::exception {
  public:
    enum class Kind {
        usual,
        damage,  ///< What was read cannot be what was written.
    };

    explicit Error(QString text, Kind kind = Kind::usual)
        : text_(std::move(text)), utf8_(text_.toUtf8()), kind_(kind) {}

    const QString& text() const { return text_; }
    bool isDamage() const { return kind_ == Kind::damage; }
    const char* what() const noexcept override { return utf8_.constData(); }

  private:
    QString text_;
    QByteArray utf8_;
    Kind kind_;
};

/// Runs one statement and ignores its failure. Returns whether it succeeded. Use it around a single statement of a
/// handler that continues with the next one, never around a whole handler.
template <typename Step>
bool attempt(Step&& step) {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}
