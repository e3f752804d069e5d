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
    /// Marks a chapter as the one that the reader has before him.
    void markChapter(int index);
    /// Wears the colours of the program.
    void wearColours();
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

    QWidget* form_;                  ///< The window; parent of all of these.
    ShapeBox* shpMl;                 ///< Frame of the list.
    EntryLabel* lblMl;               ///< Head of the list, which leads to the top of the manual.
    Surface* picGd;                  ///< The part of the list that shows.
    Surface* picBz;                  ///< The whole list, which moves up and down in it.
    QScrollBar* vsc1;                ///< Scroll bar of the list.
    CaptionBox* txtFd;               ///< A long caption of a section in full.
    std::vector<EntryLabel*> lblXz;  ///< Chapters.
    std::vector<EntryLabel*> lblX0;  ///< Sections of the open chapter.
    int marked_ = -1;                ///< Chapter in view, -1 before any.
    int sectionsHeight_ = 0;         ///< Height that the open sections add to the list.
    int listHeight_ = 0;             ///< Height of the part that shows.
};
