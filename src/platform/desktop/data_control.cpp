#include "platform/desktop/data_control.h"

#include "platform/desktop/message_box.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>
#include <algorithm>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A triangle that points to one side; a bar at its tip means the first or the last record.
void addArrow(QIcon& icon, bool right, bool bar, const QColor& colour, QIcon::Mode mode) {
    for (const int size : {12, 24, 36}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 12.0, size / 12.0);
        if (!right) {
            painter.translate(12, 0);
            painter.scale(-1, 1);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawPolygon(QPolygonF{{3, 1.5}, {9, 6}, {3, 10.5}});
        if (bar) painter.drawRect(QRectF(9, 1.5, 1.5, 9));
        painter.end();
        icon.addPixmap(pixmap, mode);
    }
}

QIcon arrow(bool right, bool bar, const QPalette& colours) {
    QIcon icon;
    addArrow(icon, right, bar, colours.color(QPalette::Active, QPalette::ButtonText), QIcon::Normal);
    addArrow(icon, right, bar, colours.color(QPalette::Disabled, QPalette::ButtonText), QIcon::Disabled);
    return icon;
}

bool isSameFile(const QString& one, const QString& other) {
    return one == other || QFileInfo(one).absoluteFilePath() == QFileInfo(other).absoluteFilePath();
}

}  // namespace

DataControl::DataControl(QWidget* parent) : QFrame(parent), caption_(new QLabel(this)) {
    setFrameShape(QFrame::StyledPanel);
    caption_->setObjectName(u"caption"_s);
    caption_->setAlignment(Qt::AlignCenter);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    const auto addButton = [&](const QString& name, const QIcon& icon, const QString& toolTip, auto target) {
        auto* button = new QToolButton(this);
        button->setObjectName(name);
        button->setIcon(icon);
        button->setIconSize({12, 12});
        button->setToolTip(toolTip);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedWidth(22);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
        connect(button, &QToolButton::clicked, this, guarded(this, target));
        line->addWidget(button);
    };
    addButton(u"first"_s, arrow(false, true, palette()), u"第一条记录"_s, [this] { step(-total()); });
    addButton(u"previous"_s, arrow(false, false, palette()), u"上一条记录"_s, [this] { step(-1); });
    line->addWidget(caption_, 1);
    addButton(u"next"_s, arrow(true, false, palette()), u"下一条记录"_s, [this] { step(1); });
    addButton(u"last"_s, arrow(true, true, palette()), u"最后一条记录"_s, [this] { step(total()); });
}

void DataControl::setCaption(const QString& caption) {
    caption_->setText(caption);
}

void DataControl::useDatabase(const Database& database) {
    given_ = database;
}

void DataControl::Refresh() {
    recordset_ = ::Recordset();
    try {
        if (given_.isOpen() && isSameFile(given_.Name(), databaseName_)) {
            opened_ = {};
            recordset_ = given_.OpenRecordset(recordSource_);
        } else {
            if (!opened_.isOpen() || !isSameFile(opened_.Name(), databaseName_)) {
                opened_ = {};
                opened_ = OpenDatabase(databaseName_);
            }
            recordset_ = opened_.OpenRecordset(recordSource_);
        }
    } catch (...) {
        Q_EMIT refreshed();
        throw;
    }
    Q_EMIT refreshed();
    if (total() > 0) Q_EMIT repositioned();
}

int DataControl::total() const {
    return recordset_.isNothing() ? 0 : recordset_.rowCount();
}

void DataControl::moveToRow(int row) {
    recordset_.moveToRow(row);
    Q_EMIT repositioned();
}

bool DataControl::goTo(int row) {
    if (mayGoTo && !mayGoTo(row)) return false;
    if (row < 0 || row >= total()) return false;
    moveToRow(row);
    return true;
}

bool DataControl::findFirst(const QString& criteria) {
    recordset_.FindFirst(criteria);
    if (recordset_.NoMatch()) return false;
    Q_EMIT repositioned();
    return true;
}

void DataControl::step(int by) {
    if (total() == 0) return;
    if (recordset_.row() < 0 && std::abs(by) == 1) {
        leaveGap(by > 0);
        return;
    }
    const int target = std::clamp(recordset_.row() + by, 0, total() - 1);
    if (target != recordset_.row()) goTo(target);
}

void DataControl::leaveGap(bool forwards) {
    if (forwards) {
        if (!recordset_.Eof()) recordset_.MoveNext();
        if (recordset_.Eof()) recordset_.MoveLast();
    } else {
        if (!recordset_.Bof()) recordset_.MovePrevious();
        if (recordset_.Bof()) recordset_.MoveFirst();
    }
    Q_EMIT repositioned();
}
