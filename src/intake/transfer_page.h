#pragma once

#include "catalogue/runs/file_transfer.h"
#include "intake/browser_panel.h"
#include "intake/code_buttons.h"
#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/mapping_panel.h"
#include "intake/name_dialog.h"
#include "intake/preview_panel.h"
#include "intake/shared_controls.h"

#include <QObject>
#include <array>
#include <functional>

class QGroupBox;
class QRadioButton;

/// The page 图片转存: records of an album are chosen into lstSu, a folder or a table of a catalogue is named as their
/// target, and they are copied or moved there. Its chapters: choosing (transfer_page.cpp), the target and the steps
/// back (transfer_target.cpp), the runs (transfer_flow.cpp).
class TransferPage : public QObject {
    Q_OBJECT

  public:
    /// Puts the page's controls on tab 3 of the frame.
    TransferPage(SharedControls& controls, FormState& state, HintLine& hints, BrowserPanel& browser,
                 MappingPanel& mapping, CodeButtons& codeButtons, PreviewPanel& preview);

    /// What the page switch does for this page beyond the shared controls.
    void enter();
    void albumChosen();
    void albumLost();
    /// A line of the grid was clicked; its record is the current one.
    void rowClicked();
    void recordChanged();

  private:
    void makeLabels();
    void makeTargetGroup();
    void makeButtons();
    void connectControls();
    void connectPanels();
    bool inFront() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    QStringList lines() const;
    void startAnew();
    void filtered(const QString& code, int total);
    void showTotal();
    void cmdQbClick();
    void cmdXbClick();
    void lstSuClick(int line);
    void addNumbers(const QString& source);
    void linesChanged();
    void fitColumns();
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
    void toNextName(bool move);
    void askName();
    ChosenRecord recordInHand(bool move) const;
    bool passesOver(const SentPicture& sent, bool move);
    void toTable(bool move);
    void nameCancelled();
    void dropDone(const RunReport& moved);
    void setNaming(bool on);
    void finish(int count);
    void tellNotDone(const RunReport& report, bool move);
    void tellEarlyEnd(const RunReport& named, bool move);
    void cmdWjClick();
    RunReport shown(const std::function<RunReport(RunWatch&)>& run);

    SharedControls& controls_;
    FormState& state_;
    HintLine& hints_;
    BrowserPanel& browser_;
    MappingPanel& mapping_;
    CodeButtons& codeButtons_;
    PreviewPanel& preview_;
    NameDialog names_;

    QLabel* lblY0_ = nullptr;
    QLabel* lbl5_ = nullptr;
    QLabel* lblJs_ = nullptr;
    QLabel* lbl6_ = nullptr;
    QLabel* lblLj_ = nullptr;
    QLabel* lbl3_ = nullptr;
    QGroupBox* fraMb_ = nullptr;
    std::array<QRadioButton*, 2> optMb_{};
    QPushButton* cmdQb_ = nullptr;
    QPushButton* cmdXb_ = nullptr;
    QPushButton* cmdFz_ = nullptr;
    QPushButton* cmdYd_ = nullptr;
    QPushButton* cmdWj_ = nullptr;
    QPushButton* cmdQq_ = nullptr;
    QProgressBar* prg3_ = nullptr;

    int nameEntryIndex_ = 0;  ///< Place in lstSu of the picture whose name is asked for.
    RunReport named_;         ///< The giving of names, as far as it has come.
};
