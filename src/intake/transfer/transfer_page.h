#pragma once

#include "catalogue/runs/file_transfer.h"
#include "intake/browsing/browser_panel.h"
#include "intake/browsing/chosen_lines.h"
#include "intake/browsing/code_buttons.h"
#include "intake/databases/mapping_panel.h"
#include "intake/preview/preview_panel.h"
#include "intake/transfer/name_dialog.h"
#include "intake/transfer/transfer_job.h"
#include "settings/frame/settings_frame.h"
#include "settings/frame/settings_page.h"

#include <QObject>
#include <array>
#include <functional>

class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;

/// The page 图片转存: records of an album are chosen, a folder or a table of a catalogue is named as their
/// target, and they are copied or moved there. Its chapters: choosing (transfer_page.cpp), the target and the steps
/// back (transfer_target.cpp), the runs (transfer_flow.cpp).
class TransferPage : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    /// Puts the page's controls on tab 3 of the frame.
    TransferPage(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser, MappingPanel& mapping,
                 CodeButtons& codeButtons, PreviewPanel& preview, ChosenLines& chosen);

    PageLayout layout() const override;
    void enter() override;
    void albumChosen() override;
    void albumLost() override;
    void rowClicked() override;
    void recordChanged() override;

  private:
    void makeLabels();
    void makeTargetGroup();
    void makeButtons();
    void connectControls();
    void connectPanels();
    bool inFront() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    void startAnew();
    void filtered(const QString& code, int total);
    void showTotal();
    void cmdQbClick();
    void cmdXbClick();
    void drop(int line);
    void addNumbers(const QString& source);
    void linesChanged();
    void nothingChosen();
    void enableChoosing();
    void resetCaptions();

    bool toFolder() const;
    void optMbClick(int index);
    void xzfy();
    void bsxz(bool enabled);
    void enableRuns(bool on);
    void folderChanged();
    void folderConfirmed();
    void fileClicked();
    void chooseTarget();
    void offerNewTarget(const QString& jetFile);
    static QString objectionTo(const QString& file);
    void dropTarget();
    void tableChosen(const QString& table);
    void tableDropped();
    QString objectionToChosen(const QString& table) const;
    void indexChosen(const QString& field);
    void mappingClosed();
    void stand(QLabel* line, int top, int height) const;
    void cmdQqClick();
    void undoChoice();
    void undoTarget();
    void undoFolder();
    void undoMapping();

    void cmdFzClick();
    void cmdYdClick();
    void fzzb();
    void fzyd(const QString& operation);
    bool moves() const;
    void sendNamed(bool move);
    RunProgress progressOfNames() const;
    void named(const SentPicture& sent, bool move);
    void toNextName(bool move);
    void askName();
    ChosenRecord recordInHand(bool move) const;
    bool passesOver(const SentPicture& sent, bool move);
    void toTable(bool move);
    void nameCancelled();
    void dropDone(const RunReport& moved);
    void setNaming(bool on);
    void finish(int count);
    void cmdWjClick();
    void finishFiles(int count);
    void begin(const TransferJob& job, void (TransferPage::*end)(int count));
    RunReport takeNamed();

    SettingsFrame frame_;
    GuidedFlow& flow_;
    BrowserPanel& browser_;
    MappingPanel& mapping_;
    CodeButtons& codeButtons_;
    PreviewPanel& preview_;
    ChosenLines& chosen_;
    NameDialog names_;

    QLabel* lblY0_ = nullptr;               ///< The source table.
    QLabel* lbl5_ = nullptr;                ///< How many are chosen.
    QLabel* lblJs_ = nullptr;               ///< How many the grid shows.
    QLabel* lbl6_ = nullptr;                ///< The target database.
    QLabel* lblLj_ = nullptr;               ///< The target folder or table.
    QLabel* lbl3_ = nullptr;                ///< Default names, or the index field.
    QGroupBox* fraMb_ = nullptr;            ///< The kind of target: optMb_.
    std::array<QRadioButton*, 2> optMb_{};  ///< A folder, a database.
    QPushButton* cmdQb_ = nullptr;          ///< Chooses the whole album, and drops it again.
    QPushButton* cmdXb_ = nullptr;          ///< Chooses what the grid shows, and drops it again.
    QPushButton* cmdFz_ = nullptr;          ///< Copies.
    QPushButton* cmdYd_ = nullptr;          ///< Moves.
    QPushButton* cmdWj_ = nullptr;          ///< Makes files with default names.
    QPushButton* cmdQq_ = nullptr;          ///< One step back.
    QProgressBar* prg3_ = nullptr;          ///< How far a run has come.

    int nameEntryIndex_ = 0;  ///< Place among the chosen of the picture whose name is asked for.
    RunReport named_;         ///< The giving of names, as far as it has come.
};
