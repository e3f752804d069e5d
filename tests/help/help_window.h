#pragma once

#include "catalogue/mektp.h"
#include "help/frm_bz.h"
#include "platform/base/files.h"
#include "shell/windows.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

/// The help window on a copy of the catalogue that the program is shipped with.
class HelpWindow : public Windows {
  public:
    HelpWindow() {
        setProgramFolder(folder_.path());
        if (!QFile::copy(qEnvironmentVariable("LUNQ_FRESH_CATALOGUE"), mekTp::cataloguePath()))
            qFatal("no shipped catalogue");
        mekTp::openCatalogue();
    }
    ~HelpWindow() override {
        form.reset();
        mekTp::catalogue = {};
        setProgramFolder({});
    }
    void open() {
        form = std::make_unique<frmBz>(*this);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
    }

    void handOver(WindowKind, WindowKind) override {}
    void show(WindowKind window) override {
        asked << QStringLiteral("show");
        if (window != WindowKind::viewer) asked << QStringLiteral("wrong");
    }
    void unload(WindowKind window) override {
        asked << QStringLiteral("unload");
        if (window != WindowKind::help) asked << QStringLiteral("wrong");
    }
    void showHelp(const QString&) override {}
    void endProgram() override { asked << QStringLiteral("end"); }

    template <typename Control = QWidget>
    Control* find(const QString& name) const {
        auto* control = form->findChild<Control*>(name);
        if (control == nullptr) qFatal("no control %s", qPrintable(name));
        return control;
    }
    bool has(const QString& name) const {
        const auto* control = form->findChild<QWidget*>(name);
        return control != nullptr && !control->isHidden();
    }
    QLabel* label(const QString& array, int index) const {
        return find<QLabel>(QStringLiteral("%1(%2)").arg(array).arg(index));
    }
    void click(const QString& array, int index) const { QTest::mouseClick(label(array, index), Qt::LeftButton); }
    RichTextBox& text() const { return *find<RichTextBox>(QStringLiteral("rtfBz")); }
    /// Text of the paragraph that the last jump led to.
    QString paragraph() const { return text().textCursor().block().text(); }
    /// How far below the upper edge of the view that paragraph stands, in pixels.
    int belowTop() const { return text().cursorRect().top(); }

    QStringList asked;
    std::unique_ptr<frmBz> form;

  private:
    QTemporaryDir folder_;
};
