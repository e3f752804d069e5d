#include "windows/window_place.h"

#include "../support/sample_catalogue.h"
#include "catalogue/remembered.h"

#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize smallest(300, 200);

/// A window as it is made: with its name and its first size.
class Window : public QWidget {
  public:
    explicit Window(QSize first = smallest) {
        setObjectName(u"frmXx"_s);
        setMinimumSize(smallest);
        resize(first);
        new RememberedSize(this);
    }
};

class TestWindowPlace : public OpenedSampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void windowsAreWhollyOnTheScreen() {
        const QRect room(0, 32, 1024, 568), second(-1280, 0, 1280, 1024);
        const std::tuple<const char*, QRect, QSize, QRect, QRect> cases[] = {
            {"in the middle", {100, 100, 800, 400}, {400, 200}, room, {300, 200, 400, 200}},
            {"larger than the other", {300, 200, 400, 200}, {800, 400}, room, {100, 100, 800, 400}},
            {"beyond the corner", {900, 500, 400, 300}, {400, 300}, room, {624, 300, 400, 300}},
            {"behind the panel", {-50, -80, 400, 300}, {400, 300}, room, {0, 32, 400, 300}},
            {"higher than the room", {0, 32, 640, 480}, {640, 700}, room, {0, 32, 640, 568}},
            {"larger than the room", {0, 0, 100, 100}, {1920, 1080}, room, room},
            {"on another screen", {-700, 900, 400, 300}, {640, 480}, second, {-819, 544, 640, 480}},
        };
        for (const auto& [name, other, frame, where, expected] : cases)
            QVERIFY2(inMiddleOf(other, frame, where) == expected, name);
    }

    void aWindowIsShownWhereTheOtherOneIs() {
        QWidget other, window;
        other.setGeometry(200, 150, 400, 300);
        window.resize(200, 100);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        standInPlaceOf(window, &other);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QPoint apart = window.frameGeometry().center() - other.frameGeometry().center();
        QVERIFY(apart.manhattanLength() <= 1);
    }

    /// That size is not remembered: the next screen may be higher.
    void aWindowThatIsTooHighIsBroughtOntoTheScreen() {
        for (const bool replaces : {true, false}) {
            init();
            const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
            QWidget other;
            Window window(room.size() + QSize(0, 60));
            window.move(room.topLeft());
            standInPlaceOf(window, replaces ? &other : nullptr);
            window.show();
            QTRY_VERIFY(room.contains(window.frameGeometry()));
            window.hide();
            QVERIFY(remembered::text(u"window.frmXx"_s).isEmpty());
        }
    }

    void theSizeOfAPersonOutlivesTheWindow() {
        {
            Window first;
            QCOMPARE(first.size(), smallest);
            first.show();
        }
        QVERIFY(remembered::text(u"window.frmXx"_s).isEmpty());
        {
            Window first;
            first.show();
            first.resize(500, 400);
            first.hide();
        }
        {
            Window second;
            QCOMPARE(second.size(), QSize(500, 400));
            second.show();
            second.showMaximized();
            second.hide();
        }
        Window third;
        QVERIFY(third.isMaximized());
        third.show();
        third.showNormal();
        QTRY_COMPARE(third.size(), QSize(500, 400));
        third.hide();
        QCOMPARE(remembered::text(u"window.frmXx"_s), u"500x400"_s);
    }

    void whatDoesNotFitIsCut() {
        const QSize room = QGuiApplication::primaryScreen()->availableSize();
        for (const QString& text : {u"9000x9000"_s, u"9000x10 maximised"_s, u"10x9000"_s, u"1"_s, u"x"_s, u"axb c"_s}) {
            remembered::setText(u"window.frmXx"_s, text);
            const Window window;
            QVERIFY2(window.width() <= room.width() && window.height() <= room.height(), qPrintable(text));
            QVERIFY2(window.width() >= smallest.width() && window.height() >= smallest.height(), qPrintable(text));
            QCOMPARE(window.isMaximized(), text.endsWith(u"maximised"));
        }
    }
};

const Registered<TestWindowPlace> registered;

}  // namespace

#include "window_place_test.moc"
