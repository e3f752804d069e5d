#include "platform/desktop/growing.h"

#include "desktop.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

class TestGrowing : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void edgesMoveByTheirShares() {
        const QRect smallest(40, 30, 100, 20);
        const std::tuple<const char*, Growth, QSize, QRect> cases[] = {
            {"stays", {}, {600, 400}, smallest},
            {"wider", widens, {600, 400}, {40, 30, 700, 20}},
            {"fills", fills, {600, 400}, {40, 30, 700, 420}},
            {"at the right, below", movesRight + movesDown, {600, 400}, {640, 430, 100, 20}},
            {"left of two columns", beside(0, 0.6) + heightens, {600, 400}, {40, 30, 460, 420}},
            {"right of two columns", beside(0.6, 1), {600, 400}, {400, 30, 340, 20}},
            {"lower half", movesDown * 0.5 + heightens * 0.5, {600, 401}, {40, 231, 100, 220}},
            {"nothing gained", fills + movesRight, {0, 0}, smallest},
        };
        for (const auto& [name, growth, gained, expected] : cases)
            QVERIFY2(grownPlace(smallest, growth, gained) == expected, name);
    }

    /// Neighbours that touch go on doing so, at every width.
    void neighboursTouch() {
        for (int gained = 0; gained < 50; ++gained) {
            const QRect left = grownPlace({0, 0, 100, 10}, beside(0, 0.3), {gained, 0});
            const QRect right = grownPlace({100, 0, 100, 10}, beside(0.3, 1), {gained, 0});
            QCOMPARE(right.left(), left.right() + 1);
            QCOMPARE(right.right(), 199 + gained);
        }
    }

    void aControlFollowsWhateverItIsOn() {
        QWidget window;
        window.setMinimumSize(640, 480);
        window.resize(640, 480);
        auto* group = make<QGroupBox>(&window, u"group"_s);
        auto* box = make<QLineEdit>(group, u"box"_s);
        auto* plain = make<QLabel>(&window, u"plain"_s);
        place(group, 1500, 1500, 3000, 1500);
        letGrow(group, beside(0, 0.5) + heightens);
        place(box, 150, 150, 1500, 300);
        letGrow(box, widens);
        window.show();
        window.resize(840, 580);
        QCOMPARE(group->geometry(), QRect(100, 100, 300, 200));
        QCOMPARE(box->geometry(), QRect(10, 10, 200, 20));

        place(box, 150, 450, 1500, 300);
        QCOMPARE(box->geometry(), QRect(10, 30, 200, 20));
        QCOMPARE(smallestPlace(box), QRect(10, 30, 100, 20));
        box->setParent(&window);
        place(box, 0, 0);
        QCOMPARE(box->geometry(), QRect(0, 0, 300, 20));
        place(plain, 150, 150, 150, 150);
        QCOMPARE(plain->geometry(), QRect(10, 10, 10, 10));

        window.resize(640, 480);
        QCOMPARE(group->geometry(), QRect(100, 100, 200, 100));
        QCOMPARE(box->geometry(), QRect(0, 0, 100, 20));
    }
};

const Registered<TestGrowing> registered;

#include "growing_test.moc"
