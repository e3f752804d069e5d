#include "platform/desktop/data_control.h"

#include "platform/desktop/message_box.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QToolButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

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
    const auto addButton = [&](const QString& name, const QString& sign, const QString& toolTip, auto target) {
        auto* button = new QToolButton(this);
        button->setObjectName(name);
        button->setText(sign);
        button->setToolTip(toolTip);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedWidth(22);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
        connect(button, &QToolButton::clicked, this, guarded(this, target));
        line->addWidget(button);
    };
    addButton(u"first"_s, u"⏮"_s, u"第一条记录"_s, [this] { step(-total()); });
    addButton(u"previous"_s, u"◀"_s, u"上一条记录"_s, [this] { step(-1); });
    line->addWidget(caption_, 1);
    addButton(u"next"_s, u"▶"_s, u"下一条记录"_s, [this] { step(1); });
    addButton(u"last"_s, u"⏭"_s, u"最后一条记录"_s, [this] { step(total()); });
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

bool DataControl::findFirst(const QString& criteria) {
    recordset_.FindFirst(criteria);
    if (recordset_.NoMatch()) return false;
    Q_EMIT repositioned();
    return true;
}

void DataControl::step(int by) {
    if (total() == 0) return;
    const int target = std::clamp(recordset_.row() + by, 0, total() - 1);
    if (target != recordset_.row()) moveToRow(target);
}
