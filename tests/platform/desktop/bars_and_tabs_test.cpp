#include "desktop.h"
#include "platform/desktop/look.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/tool_bar.h"

using namespace Qt::Literals::StringLiterals;

class TestBarsAndTabs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void toolBarKnowsItsButtonsByKey() {
        QStringList drawn;
        QWidget form;
        ToolBar bar(
            [&](const QString& key) {
                drawn.append(key);
                return QIcon();
            },
            &form);
        bar.setObjectName(u"tlb1"_s);
        QToolButton* full = bar.add(u"qp"_s, u"全屏"_s, 150, 30, 375, 375);
        bar.add(u"ts"_s, u"提示"_s, 600, 30, 375, 375);
        QCOMPARE(full->objectName(), u"tlb1:qp"_s);
        QCOMPARE(full->geometry(), QRect(10, 2, 25, 25));
        QCOMPARE(full->focusPolicy(), Qt::TabFocus);

        QSignalSpy clicked(&bar, &ToolBar::buttonClicked);
        full->click();
        QCOMPARE(clicked.takeFirst().first().toString(), u"qp"_s);
        bar.setEnabled(u"qp"_s, false);
        full->click();
        QVERIFY(clicked.isEmpty() && !bar.isEnabled(u"qp"_s) && bar.isEnabled(u"ts"_s));

        QCOMPARE(bar.image(u"ts"_s), u"ts"_s);
        bar.setImage(u"ts"_s, u"hd"_s);
        QCOMPARE(bar.image(u"ts"_s), u"hd"_s);
        QCOMPARE(bar.button(u"ts"_s)->property("image").toString(), u"hd"_s);
        QCOMPARE(drawn, (QStringList{u"qp"_s, u"ts"_s, u"hd"_s}));
        bar.setToolTip(u"ts"_s, u"无提示"_s);
        QCOMPARE(bar.button(u"ts"_s)->toolTip(), u"无提示"_s);
        QVERIFY(bar.button(u"xx"_s) == nullptr && bar.image(u"xx"_s).isEmpty() && !bar.isEnabled(u"xx"_s));
    }

    void tabPlacesControlsFromItsOwnCorner() {
        for (const bool look : {false, true}) {
            if (look) applyLook(*qApp);
            QWidget form;
            form.resize(640, 480);
            auto* tabs = new TabControl(&form);
            tabs->setGeometry(8, 4, 600, 440);
            tabs->addPage(u"图册设置"_s);
            tabs->addPage(u"图片录入"_s);
            auto* shared = new QLabel(&form);
            auto* hidden = new QLabel(&form);
            hidden->hide();
            tabs->putOn(0, shared, 1500, 750, 450, 300);
            tabs->putOn(0, hidden, 150, 750, 450, 300);
            QVERIFY(isShown(form));
            QCOMPARE(tabs->tabBar()->geometry().topLeft(), QPoint(0, 0));
            QCOMPARE(tabs->tabBar()->height(), 25);
            QCOMPARE(tabs->tabBar()->tabRect(1), QRect(62, 0, 62, 25));
            for (const auto& [page, place] : {std::pair{0, QPoint(100, 50)}, {1, QPoint(20, 25)}}) {
                tabs->setCurrentIndex(page);
                if (page == 1) {
                    tabs->putOn(1, shared, 300, 375);
                    tabs->putOn(1, hidden, 300, 900);
                }
                QCOMPARE(QRect(shared->mapTo(tabs, QPoint(0, 0)), shared->size()), QRect(place, QSize(30, 20)));
                QVERIFY(shared->isVisible() && !hidden->isVisible());
            }
        }
    }

    void mouseOverTabsIsToldInTwips() {
        QWidget form;
        form.resize(640, 480);
        auto* tabs = new TabControl(&form);
        tabs->setGeometry(10, 10, 600, 440);
        tabs->addPage(u"图册设置"_s);
        QVERIFY(isShown(form));
        QList<QPoint> moves;
        connect(tabs, &TabControl::mouseMovedAt, this, [&](int x, int y) { moves.append({x, y}); });
        for (const QPoint at : {QPoint(40, 20), QPoint(400, 12), QPoint(110, 210)})
            QTest::mouseMove(form.windowHandle(), at);
        QTRY_COMPARE(moves, (QList<QPoint>{{450, 150}, {5850, 30}, {1500, 3000}}));
    }
};

const Registered<TestBarsAndTabs> registered;

#include "bars_and_tabs_test.moc"
