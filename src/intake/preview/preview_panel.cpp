#include "intake/preview/preview_panel.h"

#include "catalogue/picture_field.h"
#include "intake/preview/preview_fit.h"
#include "intake/preview/preview_parts.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/theme.h"
#include "platform/picture/formats/any_picture.h"
#include "settings/frame/columns.h"

#include <QEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QTimer>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Pictures are decoded for the largest size in which the panel shows them, so that enlarging needs no second look.
constexpr int largestWidth = 7600, largestHeight = 5700;
constexpr int smallShapeWidth = 4095, smallShapeHeight = 3090;
constexpr int pauseMs = 200;
constexpr int enlargedFrom = 5000;  ///< Frames of at least this width are enlarged ones.

/// The lower part of the grid.
constexpr Growth overGrid = leftColumn + movesDown * 0.4 + heightens * 0.6;

struct Look {
    QString caption;
    QRect frame;
    Growth growth;
    QString heading;
};

const Look& lookOf(PreviewOpener opener) {
    static const Look looks[] = {
        {u"数库图片"_s, {150, 720, 4935, 5750}, beside(0, intakeShare) + heightens, u"查看目标数据库图片"_s},
        {u"文件图片"_s, {5100, 720, 4300, 5750}, beside(intakeShare, 1) + heightens, u"查看源文件图片"_s},
        {u"图 片"_s, {280, 3000, 4805, 3480}, overGrid, {}},
        {u"查看图片"_s, {5020, 720, 4300, 5750}, beside(transferShare, 1) + heightens, u"查看数据库图片"_s},
        {u"图 片"_s, {180, 690, 4290, 5835}, leftColumn + heightens, u"按钮图片设置"_s},
    };
    return looks[opener];
}

/// Of any format.
Picture loaded(const QString& path, QSize target) {
    Picture picture;
    if (!attempt([&] { picture = LoadPicture(path, target); })) picture = inScreenColours(readAnyPicture(path).picture);
    return picture;
}

}  // namespace

PreviewPanel::PreviewPanel(const SettingsFrame& frame)
    : frame_(frame), growthPause_(new QTimer(this)), fraCk_(make<MovableGroup>(frame.sstFz->page(1), u"fraCk"_s)) {
    fraCk_->setTitle(u"图片查看"_s);
    fraCk_->hide();
    makeControls();
    const auto run = [this](auto slot) { return guarded(frame_.form, [this, slot] { (this->*slot)(); }); };
    connect(chkCk_, &QCheckBox::clicked, this, run(&PreviewPanel::chkCkClick));
    connect(imgWj_, &ImageBox::doubleClicked, this, run(&PreviewPanel::enlargeOrReturn));
    connect(cmdAz_, &QPushButton::clicked, this, run(&PreviewPanel::cmdAzClick));
    connect(cmdAq_, &QPushButton::clicked, this, run(&PreviewPanel::cmdAqClick));
    connect(cmdCg_, &QPushButton::clicked, this, run(&PreviewPanel::close));
    growthPause_->setSingleShot(true);
    growthPause_->setInterval(pauseMs);
    connect(growthPause_, &QTimer::timeout, this, run(&PreviewPanel::sharpen));
}

void PreviewPanel::makeControls() {
    shpWj_ = make<ShapeBox>(fraCk_, u"shpWj"_s);
    shpWj_->setBorderColor(theme::worn().edge);
    imgWj_ = make<ImageBox>(fraCk_, u"imgWj"_s);
    lblC1_ = make<QLabel>(fraCk_, u"lblC1"_s, u"查 看 图 片"_s);
    lblWj_ = make<PathLabel>(fraCk_, u"lblWj"_s);
    chkCk_ = make<NarrowCheckBox>(fraCk_, u"chkCk"_s, u"原大小"_s);
    chkCk_->setStyleSheet(u"QCheckBox::indicator { width: 11px; height: 11px; }"_s);
    cmdAz_ = make<QPushButton>(fraCk_, u"cmdAz"_s, u"加载"_s);
    cmdAq_ = make<QPushButton>(fraCk_, u"cmdAq"_s, u"确定"_s);
    cmdCg_ = make<QPushButton>(fraCk_, u"cmdCg"_s, u"关闭"_s);
    label6_ = make<QLabel>(fraCk_, u"Label6"_s, u"鼠标双击返回原尺寸"_s);
    lblZp_ = make<QLabel>(frame_.sstFz->page(editingTab), u"lblZp"_s, u"双击图片可放大尺寸显示，再双击返回原尺寸"_s);
    lblKt_ = make<QLabel>(fraCk_, u"lblKt"_s);
    lblKt_->setWordWrap(true);
    lblKt_->setAttribute(Qt::WA_TransparentForMouseEvents);
    for (QLabel* label : {lblC1_, lblWj_, label6_, lblZp_, lblKt_}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
    }
    label6_->setWordWrap(true);
    place(label6_, 7950, 5250, 1200, 540);
    letGrow(label6_, movesRight + movesDown);
    letGrow({shpWj_, lblKt_}, fills);
    letGrow({lblC1_, lblWj_}, widens);
    letGrow(lblZp_, leftColumn + movesDown);
    shpWj_->installEventFilter(this);
    label6_->hide();
    frame_.sstFz->putOn(editingTab, lblZp_, 280, 6495, 4805, 210);
    lblZp_->hide();
}

QPushButton* PreviewPanel::makeOpener(PreviewOpener opener, QWidget* parent) {
    auto* button = make<QPushButton>(parent, element(u"cmdCk"_s, opener), lookOf(opener).caption);
    openers_[opener] = {button, {}};
    connect(button, &QPushButton::clicked, this, guarded(frame_.form, [this, opener] { cmdCkClick(opener); }));
    return button;
}

QPushButton* PreviewPanel::makeOpener(PreviewOpener opener, QWidget* parent, PictureTaker taker) {
    QPushButton* button = makeOpener(opener, parent);
    openers_[opener].taker = std::move(taker);
    return button;
}

void PreviewPanel::allowOpening(PreviewOpener opener, bool on) {
    openers_.at(opener).button->setEnabled(on && !(isOpen() && opener_ == opener));
}

void PreviewPanel::putOpener(PreviewOpener opener, int page, int left, int top) {
    QPushButton* button = openers_.at(opener).button;
    frame_.sstFz->putOn(page, button, left, top);
    button->raise();
}

const PictureTaker* PreviewPanel::taker() const {
    const auto& taker = openers_.at(opener_).taker;
    return taker ? &*taker : nullptr;
}

bool PreviewPanel::isOpen() const {
    return fraCk_->isVisibleTo(fraCk_->parentWidget());
}

QWidget* PreviewPanel::panel() const {
    return fraCk_;
}

QSize PreviewPanel::pictureSize() const {
    return {imgWj_->picture().Width(), imgWj_->picture().Height()};
}

void PreviewPanel::allowStoring(bool on) {
    cmdAq_->setEnabled(on);
}

void PreviewPanel::pageTurned() {
    if (isOpen()) close();
}

void PreviewPanel::showRecord() {
    showsFile_ = false;
    if (isOpen()) chkCkClick();
}

void PreviewPanel::followRecord() {
    fraCk_->setTitle(openers_.at(recordOpener).taker->caption());
    allowStoring(false);
    showRecord();
}

void PreviewPanel::showFile(const QString& path) {
    showsFile_ = true;
    file_ = path;
    if (isOpen()) chkCkClick();
}

void PreviewPanel::cmdCkClick(PreviewOpener opener) {
    if (isOpen() && opener_ != opener) close();
    opener_ = opener;
    showsFile_ = opener == intakeFileOpener;
    file_ = showsFile_ && pickedFile ? pickedFile() : QString();
    const bool takesIn = taker() != nullptr;
    fraCk_->setTitle(takesIn ? taker()->caption() : u"图片查看"_s);
    lblC1_->setText(lookOf(opener).heading);
    cmdAz_->setEnabled(true);
    cmdAz_->setVisible(takesIn);
    cmdAq_->setVisible(takesIn);
    if (takesIn) cmdAq_->setEnabled(false);
    lblZp_->setVisible(takesInRecords());

    placeFrame();
    placeParts();
    fraCk_->show();
    fraCk_->raise();
    chkCkClick();
    // Disabled, it would hand the focus to whatever box comes next.
    if (button()->hasFocus()) (takesIn ? cmdAz_ : cmdCg_)->setFocus();
    button()->setEnabled(false);
}

void PreviewPanel::placeFrame() {
    TabControl* sstFz = frame_.sstFz;
    const QRect& at = lookOf(opener_).frame;
    letGrow(fraCk_, lookOf(opener_).growth);
    sstFz->putOn(sstFz->currentIndex(), fraCk_, at.x(), at.y(), at.width(), at.height());
}

/// The rectangle round the picture, and inside it the words where there is none.
void PreviewPanel::placeShape(int left, int top, int width, int height) {
    place(shpWj_, left, top, width, height);
    place(lblKt_, left + 90, top + 90, width - 180, height - 180);
}

void PreviewPanel::placeParts() {
    label6_->hide();
    lblC1_->setVisible(!takesInRecords());
    lblWj_->setVisible(!takesInRecords());
    placeShape(90, 300, smallShapeWidth, smallShapeHeight);
    if (takesInRecords()) {
        placeSideColumn(4230);
        setFrameColour(QColor(255, 0, 0));
    } else {
        const int width = lookOf(opener_).frame.width(), height = lookOf(opener_).frame.height();
        const int left = (width - smallShapeWidth) / 2, top = (height - smallShapeHeight) / 2;
        placeShape(left, top, smallShapeWidth, smallShapeHeight);
        place(chkCk_, left + smallShapeWidth - 860, top + smallShapeHeight + 80, 855, 270);
        letGrow(chkCk_, movesRight + movesDown);
        int distance = 3000;
        for (QPushButton* button : {cmdAz_, cmdAq_, cmdCg_}) {
            place(button, width - distance, height - 435, 855, 345);
            letGrow(button, movesRight + movesDown);
            distance -= 1000;
        }
        centreLabels();
        setFrameColour(QColor(0, 0, 0));
    }
    fitPicture(room());
}

void PreviewPanel::placeSideColumn(int left) {
    place(chkCk_, left + 30, 885, 465, 570);
    letGrow({chkCk_, cmdAz_, cmdAq_, cmdCg_}, movesRight);
    int top = 1700;
    for (QPushButton* button : {cmdAz_, cmdAq_, cmdCg_}) {
        place(button, left, top, 525, 525);
        top += 600;
    }
}

void PreviewPanel::centreLabels() {
    const int width = lookOf(opener_).frame.width();
    const int own = width - 240;
    place(lblC1_, (width - own) / 2, 255, own, 270);
    place(lblWj_, (width - own) / 2, 510, own, 810);
}

void PreviewPanel::setFrameColour(const QColor& chosen) {
    const QColor colour = theme::adapted(chosen);
    QPalette colours = fraCk_->palette();
    colours.setColor(QPalette::WindowText, colour);
    fraCk_->setPalette(colours);
    // The panel stands over other controls: its ground hides them, up to the caption's own line.
    fraCk_->setStyleSheet(
        u"QGroupBox#fraCk { background: palette(window); margin-top: 0px; }"
        "QGroupBox#fraCk::title { color: %1; }"_s.arg(colour.name()));
}

// Loads and fits the picture.
void PreviewPanel::chkCkClick() {
    showPicture(readShown());
}

/// Text about what the panel shows, after its picture was read.
QString PreviewPanel::readShown() {
    const bool isNew = taker() != nullptr && taker()->isNew && taker()->isNew();
    return showsFile_ ? readFile() : isNew ? readNewButton() : readRecord();
}

/// The same picture, read for the room that it has by now; after a run, which may change what is shown.
void PreviewPanel::sharpen() {
    if (!isOpen()) return;
    if (frame_.runBar.isAtWork()) {
        growthPause_->start();
        return;
    }
    readShown();
    fitPicture(room());
}

/// Fits the picture that was read, or tells that there is none; `line` is the text about it, empty when there is
/// nothing it could belong to.
void PreviewPanel::showPicture(const QString& line) {
    const bool isShown = !imgWj_->picture().isNull();
    const QSize size = pictureSize();
    lblKt_->setVisible(!isShown);
    // Enlarged in the smallest window, the panel shows the next picture in the usual size.
    fitPicture(gained().isNull() ? usualBox : room());
    const QString about = isShown ? u"规格："_s + pixelsText(size, u"*"_s) : lblKt_->text();
    lblWj_->setText(line.isEmpty() ? QString() : line + u'\n' + about);
    lblWj_->setToolTip(line);
}

QSize PreviewPanel::gained() const {
    const QSize pixels = shpWj_->size() - smallestPlace(shpWj_).size();
    return {twipsFromPixels(pixels.width()), twipsFromPixels(pixels.height())};
}

QSize PreviewPanel::room() const {
    const bool isEnlarged = smallestPlace(fraCk_).width() >= pixelsFromTwips(enlargedFrom);
    return gained() + (isEnlarged ? QSize(largestWidth, largestHeight) : usualBox);
}

/// In a panel that has grown it is in the middle of its room.
void PreviewPanel::fitPicture(QSize room) {
    const bool isShown = !imgWj_->picture().isNull();
    chkCk_->setEnabled(isShown && offersOwnSize(pictureSize(), room));
    if (!isShown) return;
    const QSize shown = previewSize(pictureSize(), chkCk_->isChecked(), room);
    const QSize spare = room == usualBox ? QSize(0, 0) : (room - shown) / 2;
    place(imgWj_, leftOf(shpWj_) + 45 + spare.width(), topOf(shpWj_) + 45 + spare.height(), shown.width(),
          shown.height());
    const QSize needed = imgWj_->targetSize();
    if (needed.width() > decodedFor_.width() || needed.height() > decodedFor_.height()) growthPause_->start();
}

QSize PreviewPanel::sharpSize() {
    const TabControl* sstFz = frame_.sstFz;
    const QSize more = sstFz->size() - smallestPlace(sstFz).size();
    decodedFor_ = ImageBox::targetSize(imgWj_, rectFromTwips(0, 0, largestWidth, largestHeight).size() + more);
    return decodedFor_;
}

bool PreviewPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isOpen()) fitPicture(room());
    return Preview::eventFilter(watched, event);
}

QString PreviewPanel::readNewButton() {
    imgWj_->setPicture({});
    lblKt_->setText(u"还没有图片"_s);
    return u"新按钮"_s;
}

/// Text about the current record after its picture was read; empty when there is no record.
QString PreviewPanel::readRecord() {
    if (frame_.grid.total() == 0) {
        imgWj_->setPicture({});
        lblKt_->setText(u"没有记录"_s);
        return {};
    }
    Recordset& records = frame_.grid.records();
    const auto other = otherTable ? otherTable() : std::nullopt;
    const QString column = other ? other->picture : u"图片"_s;
    const QSize target = sharpSize();
    bool isEmpty = true, isRead = false;
    attempt([&] {
        const Field field = records.Fields(column);
        isEmpty = field.isNull() || field.FieldSize() == 0;
        isRead = !isEmpty && readPictureField(records, column, *imgWj_, target);
    });
    // The picture of another record would be taken for this one's.
    if (!isRead) imgWj_->setPicture({});
    const QString whose = opener_ == buttonOpener ? u"这个按钮"_s : u"这条记录"_s;
    lblKt_->setText(whose + (isEmpty ? u"没有图片"_s : u"的数据不是图片，不能显示"_s));
    QString line;
    attempt([&] {
        const QString key = other ? other->key : u"序号"_s;
        line = (other ? u"源表："_s + other->name : frame_.albums.line()) + u' ' + key + u"："_s +
               records.Fields(key).Value().textOr();
    });
    return line;
}

/// Text about the file. The picture stays when the file is none.
QString PreviewPanel::readFile() {
    const QSize target = sharpSize();
    lblKt_->setText(u"文件不是图片，不能显示"_s);
    attempt([&] { imgWj_->setPicture(loaded(file_, target)); });
    return u"图片文件："_s + file_;
}

void PreviewPanel::enlargeOrReturn() {
    if (!takesInRecords()) return;
    const bool enlarge = smallestPlace(fraCk_).width() < pixelsFromTwips(enlargedFrom);
    if (enlarge) {
        letGrow(fraCk_, fills);
        frame_.sstFz->putOn(editingTab, fraCk_, 150, 480, 9200, 6180);
    } else {
        placeFrame();
    }
    placeShape(90, 300, enlarge ? 7695 : smallShapeWidth, enlarge ? 5790 : smallShapeHeight);
    if (gained().isNull())
        place(imgWj_, 135, 345, enlarge ? largestWidth : usualBox.width(), enlarge ? largestHeight : usualBox.height());
    else
        fitPicture(room());
    placeSideColumn(enlarge ? 8230 : 4230);
    label6_->setVisible(enlarge);
    lblZp_->setVisible(!enlarge);
    fraCk_->raise();
}

void PreviewPanel::close() {
    const QWidget* focus = frame_.form->focusWidget();
    const bool hadFocus = focus != nullptr && fraCk_->isAncestorOf(focus);
    button()->setEnabled(true);
    if (hadFocus) button()->setFocus();
    fraCk_->hide();
    lblZp_->hide();
}
