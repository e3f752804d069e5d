#include "../tour/program_tour.h"
#include "help/entry_label.h"
#include "platform/desktop/colour_dialog.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/look.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Whether anybody listens to a signal, which only an object itself may ask.
struct Listened : QObject {
    static bool to(const QObject* object, const QMetaMethod& signal) {
        return (object->*&Listened::isSignalConnected)(signal);
    }
};

template <typename... Kinds>
bool isOneOf(const QWidget* control) {
    return ((qobject_cast<const Kinds*>(control) != nullptr) || ...);
}

bool isClickable(const QWidget* control) {
    if (const auto* image = qobject_cast<const ImageBox*>(control))
        return Listened::to(image, QMetaMethod::fromSignal(&ImageBox::clicked)) && !image->toolTip().isEmpty();
    if (const auto* box = qobject_cast<const QLineEdit*>(control))
        return !box->testAttribute(Qt::WA_TransparentForMouseEvents) && !isOneOf<QAbstractSpinBox>(box->parentWidget());
    return isOneOf<QAbstractButton, EntryLabel, QComboBox, QSlider, QAbstractSpinBox, QAbstractItemView, QTabBar,
                   QTextEdit>(control);
}

/// Controls of a window that people click, without the parts that the toolkit builds its own controls of.
QList<QWidget*> clickables(const QWidget* window) {
    QList<QWidget*> found;
    for (QWidget* control : window->findChildren<QWidget*>()) {
        const bool isOwn = !control->objectName().isEmpty() && !control->objectName().startsWith(u"qt_");
        if (isOwn && !control->isWindow() && isClickable(control)) found << control;
    }
    return found;
}

QString accessibleName(QWidget* control) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
    return face == nullptr ? QString() : face->text(QAccessible::Name).trimmed();
}

/// Goes round with the key Tab. A control that keeps the key to itself ends the walk.
QList<QWidget*> walkByTab(QWidget* window) {
    QList<QWidget*> way;
    constexpr int longestWay = 300;
    for (int step = 0; step < longestWay; ++step) {
        QWidget* focus = window->focusWidget();
        QTest::keyClick(focus != nullptr ? focus : window, Qt::Key_Tab);
        focus = window->focusWidget();
        if (focus == nullptr || way.contains(focus)) break;
        way << focus;
    }
    return way;
}

/// A step to the left in a row, or up in a column: the eye reads the other way.
bool isBackwards(const QWidget* from, const QWidget* to, const QWidget* window) {
    const QRect a(from->mapTo(window, QPoint()), from->size());
    const QRect b(to->mapTo(window, QPoint()), to->size());
    const bool above = b.bottom() < a.top();
    const bool sameRow = b.top() < a.center().y() && b.bottom() > a.center().y();
    return (sameRow && b.right() < a.left()) || (above && b.left() < a.right());
}

class TestAccess : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramTour> tour_;

    /// Brings the window with something to see in it: the pages of frmSz by "frmSz 1" to "frmSz 4".
    QWidget* open(const QString& what) {
        static const QHash<QString, WindowKind> beside{
            {u"frmPs"_s, WindowKind::colours}, {u"frmBz"_s, WindowKind::help}, {u"frmGy"_s, WindowKind::about}};
        const QString name = what.left(5);
        if (beside.contains(name)) tour_->program->show(beside[name]);
        if (name == u"frmSz") tour_->program->handOver(WindowKind::viewer, WindowKind::settings);
        if (name == u"frmCl") tour_->program->handOver(WindowKind::viewer, WindowKind::editor);
        QWidget* shown = tour_->window(name);
        if (name == u"frmTp") {
            tour_->openInViewer(u"旅行"_s);
            tour_->find<TextBox>(name, u"txtLs"_s)->setText(u"3列"_s);
            tour_->click(name, u"imgAn(0)"_s);
        }
        if (name == u"frmSz") shown->findChild<TabControl*>()->setCurrentIndex(what.back().digitValue() - 1);
        if (what.endsWith(u"picRq")) tour_->click(name, u"tlb1:rq"_s);
        if (what.endsWith(u"picYc")) tour_->click(name, u"tlb1:sj"_s);
        QApplication::setActiveWindow(shown);
        QApplication::processEvents();
        return shown;
    }

    static void addWindows() {
        QTest::addColumn<QString>("what");
        for (const char* what : {"frmTp", "frmTp picRq", "frmTp picYc", "frmSz 1", "frmSz 2", "frmSz 3", "frmSz 4",
                                 "frmCl", "frmPs", "frmBz", "frmGy"})
            QTest::newRow(what) << QString::fromLatin1(what);
    }

  private Q_SLOTS:
    void initTestCase() { applyLook(*qobject_cast<QApplication*>(QCoreApplication::instance())); }
    void init() {
        tour_ = std::make_unique<ProgramTour>();
        tour_->start();
    }
    void cleanup() { tour_.reset(); }

    void everyControlHasAName_data() { addWindows(); }
    void everyControlHasAName() {
        QFETCH(QString, what);
        QStringList nameless;
        for (QWidget* control : clickables(open(what))) {
            // A button that waits for its words is hidden as long.
            const bool waits = !control->isVisible() && isOneOf<QAbstractButton, EntryLabel>(control);
            if (!waits && accessibleName(control).isEmpty()) nameless << control->objectName();
        }
        QCOMPARE(nameless.join(u' '), QString());
    }

    void everyControlIsReachedByTab_data() { addWindows(); }
    void everyControlIsReachedByTab() {
        QFETCH(QString, what);
        QWidget* shown = open(what);
        const QList<QWidget*> way = walkByTab(shown);
        QStringList unreached;
        for (QWidget* control : clickables(shown))
            if (control->isVisible() && control->isEnabled() && !way.contains(control))
                unreached << control->objectName();
        QCOMPARE(unreached.join(u' '), QString());
    }

    /// Pictures and entries look like labels to the toolkit.
    void assistiveSoftwareCanPress_data() { addWindows(); }
    void assistiveSoftwareCanPress() {
        QFETCH(QString, what);
        QStringList dumb;
        for (QWidget* control : clickables(open(what))) {
            if (!isOneOf<ImageBox, EntryLabel>(control) || !(control->focusPolicy() & Qt::TabFocus)) continue;
            QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
            const bool isOperable = face->role() == QAccessible::Button || face->role() == QAccessible::Link;
            if (!isOperable ||
                !face->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()))
                dumb << control->objectName();
        }
        QCOMPARE(dumb.join(u' '), QString());
    }

    void pressedByAssistiveSoftware() {
        const auto press = [this](const QString& window, const QString& name) {
            auto* control = tour_->find<QWidget>(window, name);
            QAccessible::queryAccessibleInterface(control)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
            QApplication::processEvents();
        };
        open(u"frmTp"_s);
        press(u"frmTp"_s, u"imgXs(1)"_s);
        QVERIFY(tour_->find<QWidget>(u"frmTp"_s, u"txtB0"_s)->isVisible());
        press(u"frmTp"_s, u"imgAn(0)"_s);
        QVERIFY(!tour_->find<QWidget>(u"frmTp"_s, u"txtB0"_s)->isVisible());
        QWidget* help = open(u"frmBz"_s);
        QSignalSpy chosen(help->findChild<EntryLabel*>(u"lblXz(11)"_s), &EntryLabel::clicked);
        press(u"frmBz"_s, u"lblXz(11)"_s);
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(accessibleName(help->findChild<QWidget*>(u"rtfBz"_s)), u"使用说明"_s);
    }

    void tabAsksNothing_data() { addWindows(); }
    void tabAsksNothing() {
        QFETCH(QString, what);
        QWidget* shown = open(what);
        // The scheme of the colour window whose boxes ask for colours.
        if (auto* schemes = shown->findChild<QComboBox*>(u"cboFa"_s); schemes != nullptr) {
            const int own = schemes->findText(u"5"_s, Qt::MatchStartsWith);
            schemes->setCurrentIndex(own);
            Q_EMIT schemes->activated(own);
        }
        QStringList opened;
        answerBoxesWith([&](const BoxText& box) {
            opened << box.text;
            return false;
        });
        answerColourDialogsWith([&](const QColor&) {
            opened << u"colour"_s;
            return std::optional<QColor>();
        });
        walkByTab(shown);
        QApplication::processEvents();
        answerBoxesWith({});
        answerColourDialogsWith({});
        QCOMPARE(opened, QStringList{});
    }

    void enterPressesEveryButton_data() { addWindows(); }
    void enterPressesEveryButton() {
        QFETCH(QString, what);
        QWidget* shown = open(what);
        QStringList deaf;
        for (auto* button : shown->findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || !button->isEnabled() || !(button->focusPolicy() & Qt::TabFocus)) continue;
            button->disconnect();  // other tests check what it does
            QSignalSpy clicked(button, &QAbstractButton::clicked);
            button->setFocus(Qt::TabFocusReason);
            QTest::keyClick(button, Qt::Key_Return);
            if (clicked.size() != 1) deaf << button->objectName();
        }
        QCOMPARE(deaf.join(u' '), QString());
    }

    void tabFollowsTheEye_data() { addWindows(); }
    void tabFollowsTheEye() {
        QFETCH(QString, what);
        QWidget* shown = open(what);
        QList<QWidget*> way = walkByTab(shown);
        // The way is a ring: it begins where the eye begins.
        const auto start = std::min_element(way.begin(), way.end(), [shown](const QWidget* a, const QWidget* b) {
            const QPoint first = a->mapTo(shown, QPoint()), second = b->mapTo(shown, QPoint());
            return std::pair(first.y(), first.x()) < std::pair(second.y(), second.x());
        });
        std::rotate(way.begin(), start, way.end());
        QStringList backwards;
        for (qsizetype i = 1; i < way.size(); ++i)
            if (way[i]->parentWidget() == way[i - 1]->parentWidget() && isBackwards(way[i - 1], way[i], shown))
                backwards << way[i - 1]->objectName() + u">"_s + way[i]->objectName();
        QCOMPARE(backwards.join(u' '), QString());
    }

    void focusIsSeen_data() { addWindows(); }
    void focusIsSeen() {
        QFETCH(QString, what);
        QWidget* shown = open(what);
        QStringList unseen;
        for (QWidget* control : walkByTab(shown)) {
            control->setFocus(Qt::TabFocusReason);
            const QImage with = control->grab().toImage();
            control->clearFocus();
            if (control->grab().toImage() == with) unseen << control->objectName();
        }
        QCOMPARE(unseen.join(u' '), QString());
    }
};

const Registered<TestAccess> registered;

}  // namespace

#include "access_test.moc"
