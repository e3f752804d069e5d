#pragma once

#include "../support/found.h"
#include "../support/sample_catalogue.h"
#include "help/frm_bz.h"
#include "platform/base/files.h"
#include "windows/windows.h"

#include <QtWidgets/QtWidgets>

/// The help window on a copy of the catalogue that the program is shipped with.
class HelpWindow : public Windows {
  public:
    /// Shown, once the catalogue has been prepared.
    explicit HelpWindow(const std::function<void()>& prepare = {}) {
        setProgramFolder(folder_.path());
        if (!QFile::copy(qEnvironmentVariable("LUNQ_FRESH_CATALOGUE"), mekTp::cataloguePath()))
            qFatal("no shipped catalogue");
        mekTp::openCatalogue();
        if (prepare) prepare();
        form = std::make_unique<frmBz>(*this);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        QApplication::setActiveWindow(form.get());
    }
    ~HelpWindow() override {
        form.reset();
        mekTp::catalogue = {};
        setProgramFolder({});
    }
    void handOver(WindowKind, WindowKind) override {}
    void takeIn(const QString&, const PictureOffer&) override {}
    void show(WindowKind window) override {
        asked << (window == WindowKind::viewer ? QStringLiteral("show") : QStringLiteral("wrong"));
    }
    void unload(WindowKind window) override {
        asked << (window == WindowKind::help ? QStringLiteral("unload") : QStringLiteral("wrong"));
    }
    void coloursChanged() override {}
    void tryColours(const ColourScheme&) override {}
    void showHelp(const QString&) override {}
    void endProgram() override { asked << QStringLiteral("end"); }

    template <typename Control = QWidget>
    Control* find(const QString& name) const {
        return found<Control>(form.get(), name);
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

    /// What the window has asked of the others since the last time.
    QStringList takeAsked() { return std::exchange(asked, {}); }
    /// Whether a heading, with the space above it, is at the upper edge of the view after a jump.
    bool isAtTop() const { return belowTop() >= 0 && belowTop() <= 30; }

    std::unique_ptr<frmBz> form;

  private:
    /// Distance of that paragraph from the upper edge of the view, in pixels.
    int belowTop() const { return text().cursorRect().top(); }

    QStringList asked;
    QTemporaryDir folder_;
};
