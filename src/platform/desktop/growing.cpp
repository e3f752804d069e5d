#include "platform/desktop/growing.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace {

/// Belongs to a control that grows, and follows its parent.
class Growing : public QObject {
  public:
    explicit Growing(QWidget* control) : QObject(control), control_(control), smallest_(control->geometry()) {
        control->installEventFilter(this);
        watchParent();
    }

    static Growing* of(const QWidget* control) {
        for (QObject* part : control->children())
            if (auto* growing = dynamic_cast<Growing*>(part)) return growing;
        return nullptr;
    }

    void setGrowth(const Growth& growth) {
        growth_ = growth;
        follow();
    }
    void setSmallest(const QRect& place) {
        smallest_ = place;
        follow();
    }
    const QRect& smallest() const { return smallest_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == control_ && event->type() == QEvent::ParentChange) watchParent();
        if (watched == parent_ && event->type() == QEvent::Resize) follow();
        return QObject::eventFilter(watched, event);
    }

  private:
    void watchParent() {
        if (parent_) parent_->removeEventFilter(this);
        parent_ = control_->parentWidget();
        if (parent_) parent_->installEventFilter(this);
    }
    void follow() {
        if (parent_) control_->setGeometry(grownPlace(smallest_, growth_, gained()));
    }
    /// A window and a page are never smaller than they are at first.
    QSize gained() const {
        const Growing* ground = of(parent_);
        const QSize first = ground != nullptr ? ground->smallest().size() : parent_->minimumSize();
        return first.isEmpty() ? QSize(0, 0) : (parent_->size() - first).expandedTo({0, 0});
    }

    QWidget* control_;
    QPointer<QWidget> parent_;
    QRect smallest_;
    Growth growth_;
};

int moved(int edge, double share, int gained) {
    return edge + qRound(share * gained);
}

}  // namespace

QRect grownPlace(const QRect& smallest, const Growth& growth, QSize gained) {
    const int left = moved(smallest.x(), growth.left, gained.width());
    const int top = moved(smallest.y(), growth.top, gained.height());
    const int right = moved(smallest.x() + smallest.width(), growth.right, gained.width());
    const int bottom = moved(smallest.y() + smallest.height(), growth.bottom, gained.height());
    return {left, top, right - left, bottom - top};
}

void letGrow(QWidget* control, const Growth& growth) {
    Growing* growing = Growing::of(control);
    if (growing == nullptr) growing = new Growing(control);
    growing->setGrowth(growth);
}

void letGrow(std::initializer_list<QWidget*> controls, const Growth& growth) {
    for (QWidget* control : controls) letGrow(control, growth);
}

void setSmallestPlace(QWidget* control, const QRect& place) {
    if (Growing* growing = Growing::of(control))
        growing->setSmallest(place);
    else
        control->setGeometry(place);
}

QRect smallestPlace(const QWidget* control) {
    const Growing* growing = Growing::of(control);
    return growing != nullptr ? growing->smallest() : control->geometry();
}
