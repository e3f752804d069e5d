#include "help/contents_panel.h"

#include "catalogue/mektp.h"
#include "help/contents_rules.h"
#include "platform/base/error.h"
#include "platform/desktop/accessibility.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <QWheelEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int margin = 90;
constexpr int listLeft = 150;
constexpr int listTop = 320;
constexpr int listWidth = 2790;
constexpr int scrollBarWidth = 250;
constexpr int chapterLeft = 60;
constexpr int sectionLeft = 360;
constexpr int entryMargin = 5;  // pixels
constexpr int fullCaptionGap = 30;

const QColor headAtRest(255, 0, 0);
const QColor headUnderMouse(55, 200, 90);
const QColor entryAtRest(0, 0, 255);
const QColor entryUnderMouse(255, 150, 90);
// So many chapters lose the look under the mouse when the mouse comes to the head of the list.
constexpr size_t chaptersNearHead = 9;

/// The list passes the wheel on to its scroll bar.
class Viewport : public Surface {
  public:
    using Surface::Surface;
    QScrollBar* bar = nullptr;

  protected:
    void wheelEvent(QWheelEvent* event) override {
        event->accept();
        if (bar != nullptr && bar->isVisible()) bar->setValue(bar->value() - event->angleDelta().y() * 4);
    }
};
}  // namespace

ContentsPanel::ContentsPanel(QWidget* form) : QObject(form), form_(form) {
    makeHead();
    auto* viewport = make<Viewport>(form, u"picGd"_s);
    picGd = viewport;
    picBz = make<Surface>(picGd, u"picBz"_s);
    picBz->setAccessibleName(u"目录"_s);
    beOperable(picBz, QAccessible::List, {});
    vsc1 = make<QScrollBar>(form, u"vsc1"_s, Qt::Vertical);
    vsc1->setSingleStep(entryPitch);
    viewport->bar = vsc1;
    lblMl->raise();
    makeChapters();
    lblX0.push_back(makeSection(0));
    wearColours();
    txtFd = make<CaptionBox>(picBz, u"txtFd"_s);
    txtFd->setFrameShape(QFrame::Box);
    txtFd->setCursor(Qt::PointingHandCursor);
    txtFd->hide();

    connect(picBz, &Surface::mouseMoved, this, [this] {
        if (!isOnFullCaption()) leaveEntries();
    });
    connect(vsc1, &QScrollBar::valueChanged, this, [this](int value) { place(picBz, 0, -value); });
    connect(txtFd, &CaptionBox::clicked, this, guarded(form, [this] { Q_EMIT fullCaptionChosen(txtFd->text()); }));
}

void ContentsPanel::makeHead() {
    shpMl = make<ShapeBox>(form_, u"shpMl"_s);
    shpMl->setCornerRadius(5);
    lblMl = make<EntryLabel>(form_, u"lblMl"_s);
    lblMl->setText(u"目 录"_s);
    lblMl->setToolTip(u"回到说明的开头"_s);
    lblMl->setAlignment(Qt::AlignCenter);
    QFont bold = lblMl->font();
    bold.setBold(true);
    lblMl->setFont(bold);
    place(lblMl, listLeft + 900, 135, 1240, 240);
    connect(lblMl, &EntryLabel::clicked, this, guarded(form_, [this] { Q_EMIT topChosen(); }));
    connect(lblMl, &EntryLabel::mouseMoved, this, [this] { hoverHead(); });
    connect(lblMl, &EntryLabel::gotFocus, this, [this] { hoverHead(); });
    connect(lblMl, &EntryLabel::lostFocus, this, [this] { leaveEntries(); });
}

void ContentsPanel::makeChapters() {
    const QStringList& captions = chapterCaptions();
    for (int i = 0; i < captions.size(); ++i) {
        auto* chapter = make<EntryLabel>(picBz, element(u"lblXz"_s, i));
        chapter->setText(captions[i]);
        chapter->setContentsMargins(pixelsFromTwips(indentOf(captions[i])) + entryMargin, 0, 0, 0);
        place(chapter, chapterLeft, chapterTop(i), listWidth - 180 - chapterLeft, entryPitch);
        connect(chapter, &EntryLabel::clicked, this, guarded(form_, [this, i] { openChapter(i); }));
        connect(chapter, &EntryLabel::mouseMoved, this, [this, i] {
            if (!isOnFullCaption()) hoverChapter(i);
        });
        connect(chapter, &EntryLabel::lostFocus, this, [this] { leaveEntries(); });
        connect(chapter, &EntryLabel::gotFocus, this, [this, i] {
            hoverChapter(i);
            bringIntoView(lblXz[size_t(i)]);
        });
        lblXz.push_back(chapter);
    }
}

EntryLabel* ContentsPanel::makeSection(int number) {
    auto* section = make<EntryLabel>(picBz, element(u"lblX0"_s, number));
    section->setLook(theme::adapted(entryAtRest), false);
    section->setContentsMargins(entryMargin, 0, 0, 0);
    section->hide();
    connect(section, &EntryLabel::clicked, this,
            guarded(form_, [this, section] { Q_EMIT captionChosen(section->text()); }));
    connect(section, &EntryLabel::mouseMoved, this, [this, section] {
        if (!isOnFullCaption()) hoverSection(section);
    });
    connect(section, &EntryLabel::lostFocus, this, [this] { leaveEntries(); });
    connect(section, &EntryLabel::gotFocus, this, [this, section] {
        hoverSection(section);
        bringIntoView(section);
    });
    return section;
}

void ContentsPanel::layOut(int windowHeight) {
    place(shpMl, margin, margin, 3190, windowHeight - 650);
    listHeight_ = windowHeight - 1400;
    layOutList();
}

void ContentsPanel::layOutList() {
    const int height = listHeight_;
    const int overhang = contentsOverhang(height, sectionsHeight_);
    const int width = listWidth + (overhang > 0 ? scrollBarWidth : 0);
    place(picGd, listLeft, listTop, width, height);
    place(vsc1, listLeft + listWidth, listTop, scrollBarWidth, height);
    vsc1->setVisible(overhang > 0);
    vsc1->raise();
    vsc1->setRange(0, overhang);
    vsc1->setPageStep(height);
    place(picBz, 0, -vsc1->value(), width - 180, std::max(height, sectionsHeight_ + chaptersHeight));
}

void ContentsPanel::openChapter(int index) {
    closeSections();
    const QString caption = lblXz[size_t(index)]->text();
    Q_EMIT captionChosen(caption);
    attempt([&] {
        if (index == introduction) return;
        QStringList captions;
        for (Recordset rows = mekTp::catalogue.OpenRecordset(sectionsSql(sectionKey(caption))); !rows.Eof();
             rows.MoveNext())
            captions << rows.Fields(u"编号"_s).Value().textOr() + u' ' + rows.Fields(u"标题"_s).Value().textOr();
        showSections(index, captions);
    });
    layOutList();
}

void ContentsPanel::closeSections() {
    lblX0[0]->hide();
    txtFd->hide();
    for (size_t i = 1; i < lblX0.size(); ++i) {
        lblX0[i]->hide();
        lblX0[i]->setObjectName(QString());
        lblX0[i]->deleteLater();
    }
    lblX0.resize(1);
    for (size_t i = 0; i < lblXz.size(); ++i) place(lblXz[i], chapterLeft, chapterTop(int(i)));
    sectionsHeight_ = 0;
}

void ContentsPanel::showSections(int chapter, const QStringList& captions) {
    for (int row = 1; row <= captions.size(); ++row) {
        EntryLabel* section = makeSection(row);
        section->setText(captions[row - 1]);
        place(section, sectionLeft, chapterTop(chapter) + row * entryPitch, listWidth - 180 - sectionLeft, entryPitch);
        section->show();
        QWidget::setTabOrder(row == 1 ? lblXz[size_t(chapter)] : lblX0.back(), section);
        lblX0.push_back(section);
    }
    sectionsHeight_ = int(captions.size()) * entryPitch;
    for (size_t i = size_t(chapter) + 1; i < lblXz.size(); ++i)
        place(lblXz[i], chapterLeft, chapterTop(int(i)) + sectionsHeight_);
    txtFd->raise();
}

void ContentsPanel::wearColours() {
    shpMl->setBorderColor(theme::worn().dial);
    shpMl->setFillColor(theme::worn().base);
    rest();
}

void ContentsPanel::markChapter(int index) {
    if (index == marked_) return;
    for (size_t i = 0; i < lblXz.size(); ++i) lblXz[i]->setMarked(int(i) == index);
    marked_ = index;
    bringIntoView(lblXz[size_t(index)]);
}

void ContentsPanel::rest() {
    lblMl->setLook(theme::adapted(headAtRest), false);
    for (EntryLabel* chapter : lblXz) chapter->setLook(theme::adapted(entryAtRest), false);
    restSections();
}

void ContentsPanel::leaveEntries() {
    rest();
    txtFd->hide();
}

void ContentsPanel::restSections() {
    for (EntryLabel* section : lblX0) section->setLook(theme::adapted(entryAtRest), false);
}

void ContentsPanel::hoverChapter(int index) {
    rest();
    txtFd->hide();
    lblXz[size_t(index)]->setLook(theme::adapted(entryUnderMouse), true);
}

void ContentsPanel::hoverSection(EntryLabel* section) {
    rest();
    section->setLook(theme::adapted(entryUnderMouse), true);
    if (section->isCut())
        showFullCaption(section);
    else
        txtFd->hide();
}

void ContentsPanel::hoverHead() {
    for (size_t i = 0; i < chaptersNearHead; ++i) lblXz[i]->setLook(theme::adapted(entryAtRest), false);
    restSections();
    lblMl->setLook(theme::adapted(headUnderMouse), true);
}

/// On its way from a section to the box with the full caption, the pointer passes a piece of the next entry.
bool ContentsPanel::isOnFullCaption() const {
    const QRect box = txtFd->geometry().adjusted(0, -pixelsFromTwips(fullCaptionGap), 0, 0);
    return txtFd->isVisible() && box.contains(picBz->mapFromGlobal(QCursor::pos()));
}

void ContentsPanel::showFullCaption(const EntryLabel* section) {
    txtFd->setText(section->text());
    const int left = leftOf(section) + 420;
    const int width = widthOf(picBz) - left;
    const QRect lines = txtFd->fontMetrics().boundingRect(QRect(0, 0, pixelsFromTwips(width) - 8, 1000),
                                                          Qt::TextWrapAnywhere, section->text());
    place(txtFd, left, topOf(section) + entryPitch + fullCaptionGap, width, twipsFromPixels(lines.height() + 6));
    txtFd->show();
    txtFd->raise();
}

/// Scrolls to the entry that the keyboard has reached.
void ContentsPanel::bringIntoView(const EntryLabel* entry) {
    const int top = topOf(entry);
    const int bottom = top + heightOf(entry);
    if (top < vsc1->value()) vsc1->setValue(top);
    if (bottom > vsc1->value() + heightOf(picGd)) vsc1->setValue(bottom - heightOf(picGd));
}
