#pragma once

#include "intake/browsing/browser_panel.h"
#include "intake/databases/mapping_rules.h"
#include "settings/frame/frame_part.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <functional>
#include <vector>

class ListBox;
class QAction;
class QLabel;
class QListWidgetItem;
class QPushButton;
class QScrollArea;

/// The part of picMl by which source fields are mapped to target fields: the tables of a database (lstSb), a line for
/// every field of the target table (lblMb(n), txtYb(n)), and the pick list of source fields (lstDy). It serves the page
/// in front, 图片录入 or 图片转存, and keeps step and numbered hint of the flow where it makes them. On 图片录入
/// lstSb chooses the source table, on 图片转存 the target table; the other one is set by the page. On 图片录入 the
/// lines of a table that is not made like an album are filled at once: with the mapping of its last intake, otherwise
/// with proposals.
///
/// It also makes the buttons cmdQx and cmdLr and stands them where the page in front has them (after each `mlcl`).
/// Their captions tell what they do: "全部对应", "对应完成" and "关闭本框" are seen to here, all others go out as
/// signals.
class MappingPanel : public QObject, public FramePart {
    Q_OBJECT

  public:
    MappingPanel(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser);

    /// Whether cmdQx and cmdLr can be pressed.
    void allowAll(bool on);
    void allowEnter(bool on);
    bool mayEnter() const;
    /// They get the captions that they have while files are chosen.
    void nameAllForFiles();
    void nameEnterForFiles();
    void hideButtons();
    void raiseButtons();

    /// Whether the page 图片录入 replaces records: the field of their 序号 is then explained. Not set: never.
    std::function<bool()> replaces;
    /// Whether the album may be entered into; says why not. Asked on the page 图片录入 whatever cmdLr is about to do.
    /// Not set: it may.
    std::function<bool()> targetIsFit;

    /// A database file was clicked: opens the source database of the flow and lists its tables in lstSb (step 3 or 13,
    /// hint 3). `heading` is the caption of lbl10. Throws `Error` when it cannot be opened; nothing is listed then.
    void chooseDatabase(const QString& heading);

    // One step back each.
    void undoDatabase();  ///< Step 3 or 13: no database is chosen; step 2 or 12.
    void undoTable();     ///< Step 4 or 14: no table is chosen; step 3 or 13.
    void undoMapping();   ///< Step 5 or 15: the fields are to be mapped again; step 4 or 14.

    /// Clears the lines of fields. Tables stay listed.
    void cxdy();
    /// Hides and forgets everything: tables, lines, database.
    void reset();
    /// Hides the pick list, as the button for the step back does first.
    void hideFieldList();

    /// Another way to read the database, in the menu of lstSb.
    void offerForTables(QAction* action);

    const FieldMapping& fieldMapping() const { return fieldMapping_; }
    const QString& indexFieldName() const { return indexFieldName_; }
    /// Closed until `chooseDatabase`.
    const Database& sourceDatabase() const { return sourceDatabase_; }

  Q_SIGNALS:
    void tableChosen(const QString& table);  ///< Its fields are shown; step 4 or 14.
    void tableDropped();                     ///< None is chosen any more.
    void cleared();                          ///< No lines of fields are shown any more.
    void indexChosen(const QString& field);  ///< The source field for the first target field was picked; may be empty.
    void mapped();                           ///< The mapping is finished; step 5 or 15.
    void closed();                           ///< cmdLr with "关闭本框".

    void otherAllClicked();    ///< cmdQx with a caption that is not the panel's.
    void otherEnterClicked();  ///< cmdLr with a caption that is not the panel's.

  private:
    struct Line {
        QLabel* lblMb;
        TextBox* txtYb;
        bool isProposed = false;  ///< Nobody has chosen its field yet.
    };

    bool forTransfer() const;
    void makeControls();
    void makeButtons();
    void arrange();
    void addLine();
    TextBox* txtYb(std::size_t index) const { return lines_[index].txtYb; }

    QStringList offeredTables() const;
    void listTables();
    QString tableInLine(const QListWidgetItem* line) const;
    void lstSbClick();
    /// Told by what was chosen: keys move the line in lstSb on without choosing it.
    const QString& chosenTable() const { return forTransfer() ? flow_.targetTable() : flow_.sourceTable(); }
    void openTable(const QString& table);
    void showTable(const QString& chosen);
    void showFields(const TableShape& target);
    void propose(const QString& table);
    void proposeField(std::size_t index, const QString& field);
    void dropProposals();
    bool proposalsAreAccepted();
    void openFieldList(std::size_t index);
    void placeFieldList(const QWidget* box, int fields);
    void lstDyClick();
    void setField(std::size_t index, const QString& field);
    bool isAccepted(const QString& field, const QString& targetField);
    void markIndexField();
    void cmdQxClick();
    void mapAll();
    void cmdLrClick();
    void finishMapping();
    void readMapping();

    bool eventFilter(QObject* watched, QEvent* event) override;

    SettingsFrame frame_;
    GuidedFlow& flow_;
    BrowserPanel& browser_;

    Database sourceDatabase_;
    FieldMapping fieldMapping_;
    QString indexFieldName_;
    int mappedFieldCount_ = -1;  ///< While mapping: the line in hand, -1 before the first; then the mapped fields.
    bool mappingDone_ = false;   ///< The lines no longer open the list.

    QLabel* lbl10_ = nullptr;
    ListBox* lstSb_ = nullptr;
    QLabel* lbl8_ = nullptr;
    QLabel* lbl9_ = nullptr;
    QScrollArea* area_ = nullptr;
    std::vector<Line> lines_;     ///< The first one always stands.
    TableShape target_;           ///< The fields that the lines show.
    std::size_t lineInHand_ = 0;  ///< Whose list of fields is open.
    ListBox* lstDy_ = nullptr;
    QPushButton* cmdQx_ = nullptr;
    QPushButton* cmdLr_ = nullptr;
};
