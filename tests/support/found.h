#pragma once

#include <QWidget>
#include <QtTest/QtTest>
#include <stdexcept>

/// The child of that name and kind. Where there is none the test fails with its name, and its class ends.
template <typename Control = QWidget>
Control* found(const QObject* in, const QString& name) {
    auto* control = in != nullptr ? in->findChild<Control*>(name) : nullptr;
    if (control != nullptr) return control;
    const QString kind = QString::fromLatin1(Control::staticMetaObject.className());
    const QString what = QStringLiteral("%1 has no %2 of the name %3")
                             .arg(in != nullptr ? in->objectName() : QStringLiteral("A missing window"), kind, name);
    QTest::qFail(qPrintable(what), __FILE__, __LINE__);
    throw std::runtime_error(what.toStdString());
}
