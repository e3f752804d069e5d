#include "platform/desktop/accessibility.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTextEdit>
#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto nameFromTip = "nameFromTip";
// A label belongs to a control that is at most so many pixels away from it.
constexpr int farthestLabel = 40;

QList<QWidget*> childrenOf(const QWidget* part) {
    QList<QWidget*> found = part->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    found.removeIf([](const QWidget* child) { return child->isWindow(); });
    return found;
}

/// Whether the middle of one control is within the height of the other.
bool isSameRow(const QRect& a, const QRect& b) {
    const QRect& lower = a.height() < b.height() ? a : b;
    const QRect& higher = a.height() < b.height() ? b : a;
    return lower.center().y() >= higher.top() && lower.center().y() <= higher.bottom();
}

/// A control that takes the focus, or a panel, with the controls that Tab meets in it.
struct Stop {
    QRect place;
    QList<QWidget*> controls;
};

/// Cuts at the gaps that run through all of them: between rows, or between columns.
QList<QList<Stop>> cutAtGaps(QList<Stop> stops, bool intoRows) {
    const auto from = [intoRows](const Stop& stop) { return intoRows ? stop.place.top() : stop.place.left(); };
    const auto to = [intoRows](const Stop& stop) { return intoRows ? stop.place.bottom() : stop.place.right(); };
    std::stable_sort(stops.begin(), stops.end(), [&from](const Stop& a, const Stop& b) { return from(a) < from(b); });
    QList<QList<Stop>> parts;
    int reached = 0;
    for (const Stop& stop : stops) {
        if (parts.isEmpty() || from(stop) > reached) parts << QList<Stop>();
        parts.last() << stop;
        reached = parts.last().size() == 1 ? to(stop) : std::max(reached, to(stop));
    }
    return parts;
}

/// Row by row. Columns side by side whose rows do not match come one after the other.
QList<QWidget*> inReadingOrder(const QList<Stop>& stops, bool intoRows = true, bool wasCut = true) {
    QList<QWidget*> order;
    const QList<QList<Stop>> parts = cutAtGaps(stops, intoRows);
    for (const QList<Stop>& part : parts) {
        const bool isCut = parts.size() > 1;
        if (part.size() > 1 && (isCut || wasCut)) {
            order += inReadingOrder(part, !intoRows, isCut);
            continue;
        }
        for (const Stop& stop : part) order += stop.controls;
    }
    return order;
}

bool holdsControls(const QWidget* child) {
    return qobject_cast<const QAbstractScrollArea*>(child) == nullptr &&
           qobject_cast<const QComboBox*>(child) == nullptr &&
           qobject_cast<const QAbstractSpinBox*>(child) == nullptr && qobject_cast<const QLineEdit*>(child) == nullptr;
}

QList<QWidget*> stopsIn(const QWidget* part) {
    QList<Stop> stops;
    for (QWidget* child : childrenOf(part)) {
        if (child->isHidden()) continue;
        Stop stop{child->geometry(), {}};
        if (child->focusPolicy() & Qt::TabFocus) stop.controls << child;
        if (holdsControls(child)) stop.controls += stopsIn(child);
        if (!stop.controls.isEmpty()) stops << stop;
    }
    return inReadingOrder(stops);
}

bool needsLabel(const QWidget* control) {
    return qobject_cast<const QLineEdit*>(control) != nullptr || qobject_cast<const QComboBox*>(control) != nullptr ||
           qobject_cast<const QAbstractItemView*>(control) != nullptr ||
           qobject_cast<const QTextEdit*>(control) != nullptr ||
           qobject_cast<const QAbstractSlider*>(control) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
}

/// How far a label is to the left of a control or above it; a very large number if it is neither.
int distance(const QRect& label, const QRect& control) {
    const int before = control.left() - label.right();
    if (isSameRow(label, control) && before > -farthestLabel && label.left() < control.left()) return std::abs(before);
    const int above = control.top() - label.bottom();
    const bool over = label.left() < control.right() && label.right() > control.left();
    if (over && above > -farthestLabel / 4 && label.top() < control.top()) return farthestLabel / 2 + std::abs(above);
    return std::numeric_limits<int>::max();
}

QString withoutMarks(QString text) {
    return text.remove(u'&').remove(u'：').simplified();
}

QString labelOf(const QWidget* control) {
    QString name;
    int nearest = 2 * farthestLabel;
    for (const QWidget* other : childrenOf(control->parentWidget())) {
        const auto* label = qobject_cast<const QLabel*>(other);
        if (label == nullptr || label->text().trimmed().isEmpty()) continue;
        const int away = distance(label->geometry(), control->geometry());
        if (away >= nearest) continue;
        nearest = away;
        name = withoutMarks(label->text());
    }
    const auto* group = qobject_cast<const QGroupBox*>(control->parentWidget());
    return name.isEmpty() && group != nullptr ? withoutMarks(group->title()) : name;
}

/// The toolkit lets Tab reach one option of each group: the one that was chosen or had the focus last.
void keepOptionsOnTheWay(const QWidget* part) {
    for (QRadioButton* option : part->findChildren<QRadioButton*>())
        if (option->focusPolicy() & Qt::ClickFocus) option->setFocusPolicy(Qt::StrongFocus);
}

void takeNameFromTip(QWidget* control) {
    const QString former = control->property(nameFromTip).toString();
    if (control->accessibleName() != former) return;
    control->setAccessibleName(control->toolTip().simplified());
    control->setProperty(nameFromTip, control->accessibleName());
}

}  // namespace

void Accessibility::followTheEye(QWidget* part) {
    keepOptionsOnTheWay(part);
    const QList<QWidget*> order = stopsIn(part);
    for (qsizetype i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void Accessibility::nameByLabels(QWidget* part) {
    for (QWidget* control : part->findChildren<QWidget*>())
        if (!control->isWindow() && needsLabel(control) && control->accessibleName().isEmpty())
            control->setAccessibleName(labelOf(control));
}

bool Accessibility::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTipChange && watched->isWidgetType())
        takeNameFromTip(static_cast<QWidget*>(watched));
    if (event->type() == QEvent::KeyPress && watched->isWidgetType()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) keepOptionsOnTheWay(static_cast<QWidget*>(watched)->window());
    }
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto* shown = static_cast<QWidget*>(watched);
        const bool isPanel = holdsControls(shown) && !shown->children().isEmpty();
        if (shown->isWindow() || isPanel || (shown->focusPolicy() & Qt::TabFocus)) arrangeSoon(shown->window());
    }
    return QObject::eventFilter(watched, event);
}

// Not at once: panels and pages are placed after they have been shown.
void Accessibility::arrangeSoon(QWidget* window) {
    if (window->objectName().isEmpty() || waiting_.contains(window)) return;
    waiting_ << window;
    const auto arrange = [this, window = QPointer<QWidget>(window), key = window] {
        waiting_.remove(key);
        if (!window) return;
        nameByLabels(window);
        followTheEye(window);
    };
    QMetaObject::invokeMethod(this, arrange, Qt::QueuedConnection);
}
