#pragma once

#include "help/entry_label.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"

#include <QScrollBar>
#include <vector>

/// The contents list at the left of the help window: chapters, the sections of at most one of them, and the scroll bar
/// that appears when the list is longer than its place. Reads `tcbz`.
class ContentsPanel : public QObject {
    Q_OBJECT

  public:
    explicit ContentsPanel(QWidget* form);

    void layOut(int windowHeight);
    /// All entries as they look without a mouse over them.
    void rest();

  Q_SIGNALS:
    void captionChosen(const QString& caption);  ///< A chapter or a section was clicked.
    void fullCaptionChosen(const QString& caption);
    void topChosen();

  private:
    void makeHead();
    void makeChapters();
    EntryLabel* makeSection(int number);
    void openChapter(int index);
    void closeSections();
    void showSections(int chapter, const QStringList& captions);
    void layOutList();

    void leaveEntries();
    void restSections();
    void hoverChapter(int index);
    void hoverSection(EntryLabel* section);
    void hoverHead();
    void showFullCaption(const EntryLabel* section);
    /// Whether the pointer is on the box with the full caption, or on its way to it.
    bool isOnFullCaption() const;
    void bringIntoView(const EntryLabel* entry);

    QWidget* form_;
    ShapeBox* shpMl;
    EntryLabel* lblMl;
    Surface *picGd, *picBz;
    QScrollBar* vsc1;
    CaptionBox* txtFd;
    std::vector<EntryLabel*> lblXz, lblX0;
    int picHeight = 0;    ///< What the open sections add to the list.
    int listHeight_ = 0;  ///< Of its part that shows.
};
