#pragma once

#include "platform/base/error.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

/// Works the program as a person would: finds the controls of a window by name and clicks them. Throws `Error` when a
/// window or a control is missing.
class Hand {
  public:
    explicit Hand(QString windowName) : windowName_(std::move(windowName)) {}

    static QWidget* window(const QString& name);
    QWidget& window() const;
    bool isThere() const { return window(windowName_) != nullptr; }

    template <typename Control>
    Control& get(const QString& name) const {
        auto* control = window().findChild<Control*>(name);
        if (control == nullptr) throw Error(QStringLiteral("no control %1.%2").arg(windowName_, name));
        return *control;
    }

    void click(const QString& name) const;
    void click(const QStringList& names) const;
    void option(const QString& name) const;
    void trigger(const QString& action) const;
    void type(const QString& box, const QString& text) const;
    /// Clicks a control, or triggers an action, that leads to another window, and waits for that.
    void leaveBy(const QString& name, const QString& nextWindow) const;

    void openPage(int page) const;
    void chooseInCombo(const QString& combo, const QString& beginning) const;
    void clickLine(const QString& list, const QString& text) const;
    void clickRow(int row) const;
    /// The row of the grid that has a text in a column.
    void clickRowOf(int column, const QString& text) const;
    /// Shows a folder in the list of folders, read anew.
    void browse(const QString& folder) const;

  private:
    QString windowName_;
};
