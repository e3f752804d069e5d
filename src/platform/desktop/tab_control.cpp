#include "platform/desktop/tab_control.h"

#include "platform/base/twips.h"
#include "platform/desktop/growing.h"

#include <QMouseEvent>
#include <QTabBar>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A strip of captions of one size.
class Strip : public QTabBar {
  public:
    explicit Strip(QWidget* parent) : QTabBar(parent) {
        setDrawBase(false);
        setExpanding(false);
        setUsesScrollButtons(false);
        setElideMode(Qt::ElideNone);
    }

  protected:
    QSize tabSizeHint(int) const override {
        return {pixelsFromTwips(TabControl::captionWidth), pixelsFromTwips(TabControl::stripHeight)};
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
};

QRect onPage(const QRect& place) {
    return place.translated(0, -pixelsFromTwips(TabControl::stripHeight));
}

bool isHiddenOnPurpose(const QWidget* control) {
    return control->testAttribute(Qt::WA_WState_ExplicitShowHide) && control->isHidden();
}

}  // namespace

TabControl::TabControl(QWidget* parent) : QTabWidget(parent) {
    setTabBar(new Strip(this));
    // In every style, strip and pages have the same left edge, and nothing between them.
    setStyleSheet(
        u"QTabWidget::pane { border: 0px; margin: 0px; padding: 0px; top: 0px; }"
        "QTabWidget::tab-bar { left: 0px; }"_s);
    for (QWidget* part : {static_cast<QWidget*>(tabBar()), static_cast<QWidget*>(this)}) {
        part->setMouseTracking(true);
        part->installEventFilter(this);
    }
}

int TabControl::addPage(const QString& caption) {
    auto* page = new QWidget;
    page->setObjectName(u"page%1"_s.arg(count()));
    page->setMouseTracking(true);
    page->installEventFilter(this);
    page->setMinimumSize(smallestPlace(this).size() - QSize(0, pixelsFromTwips(stripHeight)));
    return addTab(page, caption);
}

void TabControl::putOn(int page, QWidget* control, int left, int top, int width, int height) {
    const bool shown = !isHiddenOnPurpose(control);
    if (control->parentWidget() != widget(page)) control->setParent(widget(page));
    setSmallestPlace(control, onPage(rectFromTwips(left, top, width, height)));
    if (shown) control->show();
}

void TabControl::putOn(int page, QWidget* control, int left, int top) {
    const QSize size = smallestPlace(control).size();
    putOn(page, control, left, top, twipsFromPixels(size.width()), twipsFromPixels(size.height()));
}

bool TabControl::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const auto* part = static_cast<QWidget*>(watched);
        const QPoint at = part->mapTo(this, static_cast<QMouseEvent*>(event)->position().toPoint());
        // An event that a part passes on to its parent was reported already.
        if (part != this || childAt(at) == nullptr)
            Q_EMIT mouseMovedAt(twipsFromPixels(at.x()), twipsFromPixels(at.y()));
    }
    return QTabWidget::eventFilter(watched, event);
}
