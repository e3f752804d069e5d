#include "colours/frm_ps.h"

#include "catalogue/colour_text.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "catalogue/settings_row.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/desktop/colour_dialog.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int windowWidth = 9660, windowHeight = 5985;
constexpr int previewLeft = 180, previewTop = 570, previewWidth = 6000, previewHeight = 4500;
constexpr int column = 6390, columnWidth = 3090;
constexpr int ownScheme = 5;  ///< The scheme that the user mixes; those below it are fixed.
constexpr int windowPart = 3;
constexpr int swatch = 480;  ///< Width of the colour beside a box, with the gap.
constexpr int tileTop = 5190, tilePitch = 855, tileWidth = 810, tileHeight = 660, mostTiles = 6;

/// The parts of the window whose colours the boxes txtYs hold, by index.
const std::array<QString, 4> partColumns{u"填充"_s, u"内框"_s, u"外框"_s, u"窗体"_s};

QString schemeSql(const QString& number) {
    return u"SELECT * FROM tcys WHERE 序号 = "_s + quoted(number);
}

/// Number of a scheme in a line of the list.
QString numberIn(const QString& line) {
    return line.left(1);
}

void setGround(QLabel* label, const QColor& colour) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, colour);
    label->setPalette(palette);
}

QLabel* makeLabel(QWidget* form, const QString& name, const QString& text, const QRect& twips) {
    auto* label = make<QLabel>(form, name);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    place(label, twips.left(), twips.top(), twips.width(), twips.height());
    return label;
}

}  // namespace

frmPs::frmPs(Windows& windows) : QWidget(nullptr, Qt::Window), windows_(windows) {
    setObjectName(u"frmPs"_s);
    setWindowTitle(u"窗口颜色配置"_s);
    setFixedSize(pixelsFromTwips(windowWidth), pixelsFromTwips(windowHeight));
    lblBt = makeLabel(this, u"lblBt"_s, {}, {previewLeft, 180, previewWidth, 300});
    QFont bold = lblBt->font();
    bold.setBold(true);
    lblBt->setFont(bold);
    imgXs = make<ImageBox>(this, u"imgXs"_s);
    imgXs->setFrameShape(QFrame::Box);
    place(imgXs, previewLeft, previewTop, previewWidth, previewHeight);
    makeList();
    makeBoxes();
    makeMiniature();
    makeButtons();
    load();
    cboFa->setFocus();
}

void frmPs::makeList() {
    lblFa = makeLabel(this, u"lblFa"_s, {}, {column, 135, columnWidth, 480});
    QLabel* caption = makeLabel(this, u"lblXz"_s, u"方案查看选择"_s, {column, 660, columnWidth, 255});
    cboFa = make<QComboBox>(this, u"cboFa"_s);
    caption->setBuddy(cboFa);
    place(cboFa, column, 930, columnWidth, 345);
    connect(cboFa, &QComboBox::activated, this, guarded(this, [this] {
                cboFaClick();
                tryOn();
            }));
    lblTs =
        makeLabel(this, u"lblTs"_s, u"  左侧显示的图片 ，是处于“默认”方案的窗口。"_s, {column, 4635, columnWidth, 480});
    lblTs->setWordWrap(true);
}

void frmPs::makeBoxes() {
    for (int i = 0; i < int(txtYs.size()); ++i) {
        const int top = 1410 + i * 405;
        QLabel* caption = makeLabel(this, element(u"lblYs"_s, i), partColumns[size_t(i)], {column, top, 600, 330});
        auto* box = make<TextBox>(this, element(u"txtYs"_s, i));
        box->setLocked(true);
        box->setToolTip(u"自定义方案的颜色：点这里选择"_s);
        box->setAccessibleName(partColumns[size_t(i)]);
        place(box, column + 600, top, columnWidth - 600 - swatch, 330);
        shpYs[size_t(i)] = make<ShapeBox>(this, element(u"shpYs"_s, i));
        shpYs[size_t(i)]->setCornerRadius(3);
        place(shpYs[size_t(i)], column + columnWidth - swatch + 60, top, swatch - 60, 330);
        caption->setBuddy(box);
        box->installEventFilter(this);
        connect(box, &TextBox::gotFocus, this, guarded(this, [this, i] {
                    if (!passesBox_) txtYsGotFocus(i);
                }));
        // The box keeps the focus while its colour is chosen: a click or Enter asks again.
        for (const auto again : {&TextBox::clicked, &TextBox::enterPressed})
            connect(box, again, this, guarded(this, [this, i] { txtYsGotFocus(i); }));
        txtYs[size_t(i)] = box;
    }
}

// A small window: ground, outer frame, fill, and the inner frame with the fill again inside it.
void frmPs::makeMiniature() {
    shpCt = make<ShapeBox>(this, u"shpCt"_s);
    shpCt->setBorderColor(palette().color(QPalette::Dark));
    place(shpCt, column, 3105, columnWidth, 1470);
    const auto part = [this](const QString& name, int inset) {
        auto* label = make<QLabel>(this, name);
        label->setAutoFillBackground(true);
        place(label, column + 330 + inset, 3345 + inset, columnWidth - 660 - 2 * inset, 990 - 2 * inset);
        return label;
    };
    lblB0[2] = part(element(u"lblB0"_s, 2), 0);
    lblB0[0] = part(element(u"lblB0"_s, 0), 60);
    lblB0[1] = part(element(u"lblB0"_s, 1), 210);
    lblB2 = part(u"lblB2"_s, 255);
}

void frmPs::makeButtons() {
    const auto button = [this](const QString& name, const QString& caption, int left) {
        auto* made = make<QPushButton>(this, name);
        made->setText(caption);
        place(made, left, 5370, 1290, 390);
        return made;
    };
    cmdQd = button(u"cmdQd"_s, u"确定(&Q)"_s, 5430);
    cmdQd->setDefault(true);
    QPushButton* cmdQx = button(u"cmdQx"_s, u"取消(&G)"_s, 6810);
    QPushButton* cmdGb = button(u"cmdGb"_s, u"退出(&T)"_s, 8190);
    cmdGb->setToolTip(u"结束整个软件"_s);
    connect(cmdQd, &QPushButton::clicked, this, guarded(this, [this] { cmdQdClick(); }));
    connect(cmdQx, &QPushButton::clicked, this, guarded(this, [this] { leave(); }));
    connect(cmdGb, &QPushButton::clicked, this, guarded(this, [this] { windows_.endProgram(); }));
}

void frmPs::load() {
    runHandler(this, [this] {
        const QString active = setting(u"颜色"_s).textOr();
        const Recordset row = mekTp::catalogue.OpenRecordset(schemeSql(active));
        if (row.rowCount() > 0)
            lblFa->setText(u"当前方案\n["_s + row.Fields(u"序号"_s).Value().textOr() + u' ' +
                           row.Fields(u"方案名"_s).Value().textOr() + u']');
        Recordset all = mekTp::catalogue.OpenRecordset(u"tcys"_s);
        for (; !all.Eof(); all.MoveNext()) {
            const QString number = all.Fields(u"序号"_s).Value().textOr();
            const QString name = all.Fields(u"方案名"_s).Value().textOr();
            cboFa->addItem(number + u' ' + name);
            addTile(name);
        }
        cboFa->setCurrentText(u"0 默认"_s);
        cboFaClick();
    });
}

QString frmPs::schemeNumber() const {
    return numberIn(cboFa->currentText());
}

void frmPs::cboFaClick() {
    schemeRow_ = mekTp::catalogue.OpenRecordset(schemeSql(schemeNumber()));
    if (schemeRow_.rowCount() == 0)
        say(this, u"颜色设置数据没找到，请查明原因！"_s, BoxIcon::information);
    else
        showScheme();
    lblTs->setVisible(cboFa->currentText().startsWith(u'0'));
}

void frmPs::showScheme() {
    lblBt->setText(u"窗口颜色配置方案显示("_s + cboFa->currentText().mid(2) + u')');
    for (size_t i = 0; i < txtYs.size(); ++i) txtYs[i]->setText(schemeRow_.Fields(partColumns[i]).Value().textOr());
    if (schemeRow_.Fields(u"主窗口"_s).isNull())
        imgXs->setPicture({});
    else
        readPictureField(schemeRow_, u"主窗口"_s, *imgXs);
    paintParts();
    showTiles();
}

void frmPs::showTiles() {
    for (size_t i = 0; i < cmdFa_.size(); ++i) {
        cmdFa_[i]->setScheme(storedScheme(numberIn(cboFa->itemText(int(i)))));
        cmdFa_[i]->setChecked(int(i) == cboFa->currentIndex());
    }
}

void frmPs::addTile(const QString& name) {
    const int index = int(cmdFa_.size());
    if (index == mostTiles) return;
    auto* tile = make<SchemeTile>(this, element(u"cmdFa"_s, index));
    tile->setText(name);
    tile->setToolTip(name);
    place(tile, previewLeft + index * tilePitch, tileTop, tileWidth, tileHeight);
    connect(tile, &SchemeTile::clicked, this, guarded(this, [this, index] { chooseTile(index); }));
    cmdFa_.push_back(tile);
}

void frmPs::chooseTile(int index) {
    cboFa->setCurrentIndex(index);
    cboFaClick();
    tryOn();
}

ColourScheme frmPs::mixedScheme() const {
    const auto colour = [this](int index) {
        const QString text = txtYs[size_t(index)]->text();
        QColor found;
        if (!text.isEmpty()) attempt([&] { found = colourFromText(text); });
        return found;
    };
    return {.ground = colour(windowPart), .outerFrame = colour(2), .fill = colour(0), .innerFrame = colour(1)};
}

void frmPs::tryOn() {
    isTried_ = true;
    windows_.tryColours(mixedScheme());
    paintParts();  // other colours of the program take away those of the parts
}

void frmPs::paintParts() {
    for (int i = 0; i < int(txtYs.size()); ++i) {
        const QString text = txtYs[size_t(i)]->text();
        if (!text.isEmpty()) attempt([&] { setPartColour(i, colourFromText(text)); });
    }
}

QColor frmPs::partColour(int index) const {
    return index == windowPart ? shpCt->fillColor() : lblB0[size_t(index)]->palette().color(QPalette::Window);
}

void frmPs::setPartColour(int index, const QColor& colour) {
    shpYs[size_t(index)]->setFillColor(colour);
    if (index == windowPart) {
        shpCt->setFillColor(colour);
        return;
    }
    setGround(lblB0[size_t(index)], colour);
    if (index == 0) setGround(lblB2, colour);
}

void frmPs::txtYsGotFocus(int index) {
    if (choosing_ || numericValue(schemeNumber()) < ownScheme) return;
    choosing_ = true;
    const QPointer<frmPs> self = this;  // the main window may take this one away meanwhile
    const auto chosen = askColour(this, u"dlg1"_s, partColour(index));
    if (!self) return;
    choosing_ = false;
    if (!chosen) return;
    setPartColour(index, *chosen);
    txtYs[size_t(index)]->setText(colourText(*chosen));
    if (size_t(cboFa->currentIndex()) < cmdFa_.size()) cmdFa_[size_t(cboFa->currentIndex())]->setScheme(mixedScheme());
    tryOn();
}

void frmPs::cmdQdClick() {
    Transaction both(mekTp::catalogue);
    storeSetting(u"颜色"_s, schemeNumber());
    if (numericValue(schemeNumber()) == ownScheme) {
        Recordset own = mekTp::catalogue.OpenRecordset(schemeSql(QString::number(ownScheme)));
        own.Edit();
        for (size_t i = 0; i < txtYs.size(); ++i) own.Fields(partColumns[i]).SetValue(txtYs[i]->text());
        own.Update();
    }
    both.commit();
    isTried_ = false;
    windows_.coloursChanged();
    leave();
}

void frmPs::leave() {
    windows_.unload(WindowKind::colours);
}

void frmPs::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    leave();
}

// Whichever way the window goes. A minimised one stays.
void frmPs::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous() || !isTried_) return;
    isTried_ = false;
    windows_.coloursChanged();
}

void frmPs::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (event->key() == Qt::Key_Escape)
        leave();
    else if (isEnter)
        (button != nullptr ? button : cmdQd)->click();
    else if (event->key() == Qt::Key_Space && focusedBox() >= 0)
        runHandler(this, [this] { txtYsGotFocus(focusedBox()); });
    else
        QWidget::keyPressEvent(event);
}

bool frmPs::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        passesBox_ = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    }
    return QWidget::eventFilter(watched, event);
}

int frmPs::focusedBox() const {
    const auto found = std::find(txtYs.begin(), txtYs.end(), focusWidget());
    return found == txtYs.end() ? -1 : int(found - txtYs.begin());
}
