#include "viewer/tool_strip.h"

#include "platform/base/conversion.h"
#include "platform/base/typed_date.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "platform/desktop/tool_icon.h"
#include "viewer/filters.h"
#include "viewer/ground.h"
#include "viewer/window_layout.h"

#include <QFontMetrics>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr double letterGap = 2;  // pixels: makes the blank of the page label hold three digits
constexpr int barHeight = 450;
constexpr int buttonSide = 390;
constexpr int buttonTop = 0;
constexpr int boxTop = 30;
constexpr int boxHeight = 270;
constexpr int labelLeft = 2760;
constexpr int numberLeft = 3810;
const QString anyNumber = u"序号任意"_s;

struct ButtonPlace {
    QString key, toolTip;
    int left;
};

// Places on the right are set with the width of the window.
const std::array<ButtonPlace, 13>& buttonPlaces() {
    static const std::array<ButtonPlace, 13> places{{{u"dk"_s, u"图片文件"_s, 100},
                                                     {u"bj"_s, u"编辑图片及系统设置"_s, 490},
                                                     {u"ty"_s, u"第一张"_s, 1030},
                                                     {u"sy"_s, u"上一张"_s, 1420},
                                                     {u"xy"_s, u"下一张"_s, 1810},
                                                     {u"hy"_s, u"最后一张"_s, 2200},
                                                     {u"rq"_s, u"按日期选择图片"_s, 4780},
                                                     {u"xs"_s, u"显示图片"_s, 0},
                                                     {u"hd"_s, u"播放图片"_s, 0},
                                                     {u"sj"_s, u"时间设置"_s, 0},
                                                     {u"yd"_s, u"按原始大小显示"_s, 0},
                                                     {u"bz"_s, u"帮助"_s, 0},
                                                     {u"gb"_s, u"退出关闭本软件"_s, 0}}};
    return places;
}
}  // namespace

ToolStrip::ToolStrip(QWidget* form) {
    clb1 = make<QFrame>(form, u"clb1"_s);
    tlb1 = make<ToolBar>(clb1, u"tlb1"_s, [](const QString& key) { return toolIcon(key, theme::worn().window); });
    addButtons();
    addPageBox();
    addConditionBoxes();
    addFlags();
    addTitle();
}

void ToolStrip::addButtons() {
    connect(tlb1, &ToolBar::buttonClicked, this, &ToolStrip::keyClicked);
    for (const ButtonPlace& place : buttonPlaces())
        tlb1->add(place.key, place.toolTip, place.left, buttonTop, buttonSide, buttonSide);
    for (int i = 0; i < 4; ++i) {
        auto* line = new LineBox(tlb1);
        separators_.push_back(line);
    }
}

void ToolStrip::addPageBox() {
    // The page number is typed into the blank between the words of this label, which is widened to hold it.
    txtD1 = make<TextBox>(tlb1, u"txtD1"_s);
    QFont wide = txtD1->font();
    wide.setLetterSpacing(QFont::AbsoluteSpacing, letterGap);
    txtD1->setFont(wide);
    txtD1->setLocked(true);
    txtD1->setFocusPolicy(Qt::NoFocus);
    txtD1->setAttribute(Qt::WA_TransparentForMouseEvents);
    txtD1->setStyleSheet(u"border: none; background: transparent; padding: 0px;"_s);
    txtD1->setText(u"第     页："_s);
    txtD1->setCursorPosition(0);
    place(txtD1, labelLeft, boxTop, 1040, boxHeight);

    txtYh = make<TextBox>(tlb1, u"txtYh"_s);
    txtYh->setToolTip(u"输入页号后回车开始执行"_s);
    txtYh->setAlignment(Qt::AlignCenter);
    txtYh->setStyleSheet(u"padding: 0px;"_s);
    const QFontMetrics metrics(wide);
    const int blankLeft = 2 + metrics.horizontalAdvance(u"第"_s);
    const int blank = metrics.horizontalAdvance(u"     "_s);
    place(txtYh, labelLeft + twipsFromPixels(blankLeft + 1), boxTop, twipsFromPixels(blank - 1), boxHeight);

    connect(txtYh, &TextBox::textEdited, this, &ToolStrip::pageTyped);
    connect(txtYh, &TextBox::enterPressed, this, [this] { Q_EMIT pageEntered(txtYh->isModified()); });
    // The press of the mouse that brings the focus would take the selection away again.
    connect(txtYh, &TextBox::gotFocus, this, [this] {
        txtYh->selectAll();
        pageBoxWasEntered_ = true;
    });
    connect(txtYh, &TextBox::clicked, this, [this] {
        if (std::exchange(pageBoxWasEntered_, false)) txtYh->selectAll();
    });
}

void ToolStrip::addConditionBoxes() {
    const auto box = [this](const QString& name, const QString& accessibleName, const QString& text) {
        auto* made = make<TextBox>(tlb1, name);
        made->setAccessibleName(accessibleName);
        made->setText(text);
        made->setStyleSheet(u"padding: 0px;"_s);
        made->setAlignment(Qt::AlignCenter);
        return made;
    };
    txtXh = box(u"txtXh"_s, u"序号条件"_s, anyNumber);
    txtXx = box(u"txtXx"_s, u"序号"_s, {});
    place(txtXx, 4350, 60, 375, 180);
    showNumberBox(false);
    for (const TextBox* numbers : {txtXh, txtXx})
        connect(numbers, &TextBox::clicked, this, [this] { Q_EMIT numberListWanted(txtXh); });
    connect(txtXh, &TextBox::textChanged, this, [this](const QString& text) {
        if (text == anyNumber) Q_EMIT numbersChanged();
    });
    connect(txtXx, &TextBox::textChanged, this, &ToolStrip::numbersChanged);
    connect(txtXx, &TextBox::lostFocus, this, &ToolStrip::numbersChanged);
    connect(txtXx, &TextBox::enterPressed, this, &ToolStrip::numbersEntered);

    txtLs = box(u"txtLs"_s, u"列数"_s, u"1列"_s);
    connect(txtLs, &TextBox::textChanged, this, &ToolStrip::columnsChanged);
    connect(txtLs, &TextBox::enterPressed, this, &ToolStrip::columnsEntered);
    connect(txtLs, &TextBox::clicked, this, [this] { Q_EMIT columnListWanted(txtLs); });
}

void ToolStrip::addFlags() {
    const std::array<QString, 2> captions{u"标签"_s, u"全屏"_s};
    for (size_t i = 0; i < chkBq.size(); ++i) {
        chkBq[i] = make<QCheckBox>(tlb1, element(u"chkBq"_s, int(i)));
        chkBq[i]->setText(captions[i]);
        chkBq[i]->setFocusPolicy(Qt::TabFocus);
    }
    connect(chkBq[0], &QCheckBox::toggled, this, &ToolStrip::captionsSwitched);
    connect(chkBq[1], &QCheckBox::toggled, this, &ToolStrip::fullScreenSwitched);
}

void ToolStrip::addTitle() {
    picBq = make<Surface>(tlb1, u"picBq"_s);
    shpBq = make<ShapeBox>(picBq, u"shpBq"_s);
    shpBq->setCornerRadius(4);
    picBq->setContextMenuPolicy(Qt::ActionsContextMenu);
    txtWd = make<TitleBox>(picBq, u"txtWd"_s);
    prg1 = make<QProgressBar>(picBq, u"prg1"_s);
    prg1->setTextVisible(false);
    prg1->hide();
}

void ToolStrip::layOut(int formWidth, bool smallScreen) {
    const WindowLayout window = windowLayout(formWidth, 0, 0);
    const StripLayout strip = stripLayout(formWidth);
    place(clb1, 0, 0, window.barWidth, barHeight);
    place(tlb1, 0, 0, window.stripWidth, barHeight);

    const std::array<std::pair<QString, int>, 6> following{{{u"xs"_s, strip.draw},
                                                            {u"hd"_s, strip.show},
                                                            {u"sj"_s, strip.interval},
                                                            {u"yd"_s, strip.original},
                                                            {u"bz"_s, strip.help},
                                                            {u"gb"_s, strip.leave}}};
    for (const auto& [key, left] : following) place(tlb1->button(key), left, buttonTop);
    place(txtLs, strip.columns, boxTop, 405, boxHeight);
    place(chkBq[0], strip.captions, buttonTop, 705, buttonSide);
    place(chkBq[1], strip.fullScreen, buttonTop, 705, buttonSide);

    const std::array<int, 4> lines{955, 2675, strip.draw - 90, strip.columns + 570};
    for (size_t i = 0; i < separators_.size(); ++i) separators_[i]->setEnds(lines[i], 75, lines[i], 315);

    smallScreen_ = smallScreen;
    picBq->setVisible(!smallScreen);
    place(picBq, strip.titleLeft, buttonTop, strip.titleWidth, buttonSide);
    shpBq->setGeometry(picBq->rect());
    txtWd->setGeometry(picBq->rect().adjusted(3, 3, -3, -3));
    prg1->setGeometry(picBq->rect().adjusted(6, 8, -6, -8));
}

void ToolStrip::showNumberBox(bool on) {
    place(txtXh, numberLeft, boxTop, on ? 950 : 825, boxHeight);
    txtXh->setAlignment(on ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    txtXx->setVisible(on);
    if (on) txtXx->raise();
}

void ToolStrip::beginProgress(bool barIsShown) {
    txtWd->hide();
    prg1->setVisible(barIsShown);
    prg1->setValue(0);
}

void ToolStrip::showProgress(int percent) {
    prg1->setValue(percent);
    prg1->repaint();
}

void ToolStrip::endProgress() {
    txtWd->setVisible(!smallScreen_);
    prg1->hide();
}

void ToolStrip::setGround(const QColor& ground) {
    // The program's style sheet keeps the window's palette from these.
    for (QCheckBox* box : chkBq) ::setGround(box, ground);
    setInkFor(txtD1, ground);
    txtXx->setStyleSheet(theme::filledIn(u"border: none; padding: 0px; background: @accentTint;"_s));
    for (LineBox* line : separators_) line->setColor(theme::worn().line);
    shpBq->setBorderColor(theme::worn().line);
    tlb1->setIconSource([ground](const QString& key) { return toolIcon(key, ground); });
}

void ToolStrip::showAlbumKey(bool isOpen, const QString& toolTip) {
    tlb1->setImage(u"dk"_s, isOpen ? u"hs"_s : u"dk"_s);
    tlb1->setToolTip(u"dk"_s, toolTip);
}

void ToolStrip::showSlideShow(bool isRunning) {
    tlb1->setImage(u"hd"_s, isRunning ? u"hb"_s : u"hd"_s);
    tlb1->setToolTip(u"hd"_s, isRunning ? u"关闭幻灯"_s : u"幻灯"_s);
}

void ToolStrip::showOriginalSize(bool on) {
    tlb1->setImage(u"yd"_s, on ? u"cm"_s : u"yd"_s);
    tlb1->setToolTip(u"yd"_s, on ? u"充满窗口"_s : u"原始大小"_s);
}

void ToolStrip::showHelp(bool isOpen) {
    tlb1->setImage(u"bz"_s, isOpen ? u"bg"_s : u"bz"_s);
    tlb1->setToolTip(u"bz"_s, isOpen ? u"帮助关闭"_s : u"帮助"_s);
}

double ToolStrip::page() const {
    return numericValue(inPlainWidth(txtYh->text()));
}

QString ToolStrip::numberCondition() const {
    return ::numberCondition(txtXh->text(), txtXx->text());
}

void ToolStrip::chooseNumbers(const QString& line) {
    const bool any = line == anyNumber;
    showNumberBox(!any);
    txtXh->setText(line);
    if (!any) txtXx->setFocus();
}

bool ToolStrip::listFor(const QWidget* box) {
    if (box == txtLs)
        Q_EMIT columnListWanted(txtLs);
    else if (box == txtXh || box == txtXx)
        Q_EMIT numberListWanted(txtXh);
    else
        return false;
    return true;
}
