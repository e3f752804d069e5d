#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "program.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

/// How windows come, and how the last one goes.
class TestWindows : public QObject {
    Q_OBJECT

    std::unique_ptr<SampleCatalogue> catalogue_;
    std::unique_ptr<Program> program_;

    static QWidget* window(const QString& name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == name && widget->isVisible()) return widget;
        return nullptr;
    }
    static void click(const QString& windowName, const QString& name) {
        auto* control = window(windowName)->findChild<QWidget*>(name);
        if (control == nullptr) qFatal("no control %s", qPrintable(name));
        QTest::mouseClick(control, Qt::LeftButton);
    }

  private Q_SLOTS:
    void init() {
        catalogue_ = std::make_unique<SampleCatalogue>();
        program_ = std::make_unique<Program>();
        program_->start();
        QTRY_VERIFY(window(u"frmTp"_s));
    }
    void cleanup() {
        program_.reset();
        catalogue_.reset();
    }

    void aMinimisedWindowComesBack() {
        window(u"frmTp"_s)->findChild<QAction*>(u"mnuGy"_s)->trigger();
        QWidget* about = window(u"frmGy"_s);
        about->showMinimized();
        window(u"frmTp"_s)->findChild<QAction*>(u"mnuGy"_s)->trigger();
        QCOMPARE(window(u"frmGy"_s), about);
        QVERIFY(!about->isMinimized());
    }

    void theLastWindowEndsTheProgram_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"cmdQd", "cmdQx", "Escape", "frame"}) QTest::newRow(way) << QString::fromLatin1(way);
    }

    /// The main window was closed while the colours stood beside it.
    void theLastWindowEndsTheProgram() {
        QFETCH(QString, way);
        constexpr int stillRunning = 7;
        window(u"frmTp"_s)->findChild<QAction*>(u"mnuCs"_s)->trigger();
        QTimer::singleShot(0, [&] {
            window(u"frmTp"_s)->close();
            QWidget* colours = window(u"frmPs"_s);
            if (way == u"Escape")
                QTest::keyClick(colours, Qt::Key_Escape);
            else if (way == u"frame")
                colours->close();
            else
                click(u"frmPs"_s, way);
        });
        QTimer patience;
        connect(&patience, &QTimer::timeout, [] { QCoreApplication::exit(stillRunning); });
        patience.start(5000);
        QCOMPARE(QApplication::exec(), 0);
    }

    /// Only with the last one: whoever hands over is not left without a program.
    void otherWindowsKeepTheProgram() {
        constexpr int stillRunning = 7;
        QTimer::singleShot(0, [&] {
            window(u"frmTp"_s)->findChild<QAction*>(u"mnuCs"_s)->trigger();
            click(u"frmPs"_s, u"cmdQx"_s);
            click(u"frmTp"_s, u"tlb1:bj"_s);
            click(u"frmSz"_s, u"cmdFh"_s);
            click(u"frmTp"_s, u"tlb1:bz"_s);
            window(u"frmTp"_s)->close();
            click(u"frmBz"_s, u"imgFh"_s);
            QTimer::singleShot(0, [] { QCoreApplication::exit(stillRunning); });
        });
        QCOMPARE(QApplication::exec(), stillRunning);
        QVERIFY(window(u"frmTp"_s));
    }
};

const Registered<TestWindows> registered;

}  // namespace

#include "windows_test.moc"
