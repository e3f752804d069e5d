#include "settings/frame/report_window.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QAbstractTableModel>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString buttonOfSaving = u"另存为文本…"_s;
constexpr QSize usualSize(720, 440);
constexpr int nameWidth = 210, outcomeWidth = 190;
constexpr int lineHeight = 22, buttonWidth = 80;

class ReportModel : public QAbstractTableModel {
  public:
    ReportModel(QObject* parent, std::vector<ReportLine> lines, QString heading)
        : QAbstractTableModel(parent), lines_(std::move(lines)), heading_(std::move(heading)) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : int(lines_.size()); }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 3; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
        const ReportLine& line = lines_[size_t(index.row())];
        const QString texts[] = {line.name, line.outcome, line.reason};
        return texts[index.column()];
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole || orientation == Qt::Vertical) return {};
        const QString headings[] = {heading_, u"结果"_s, u"原因"_s};
        return headings[section];
    }

  private:
    std::vector<ReportLine> lines_;
    QString heading_;
};

QTableView* makeList(QWidget* parent, QAbstractTableModel* model) {
    auto* list = make<QTableView>(parent, u"lstBg"_s);
    list->setAccessibleName(u"逐张的结果"_s);
    list->setModel(model);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setAlternatingRowColors(true);
    list->setShowGrid(false);
    list->setWordWrap(false);
    list->setTabKeyNavigation(false);
    list->verticalHeader()->hide();
    list->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list->verticalHeader()->setDefaultSectionSize(lineHeight);
    list->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    list->horizontalHeader()->setHighlightSections(false);
    list->horizontalHeader()->setStretchLastSection(true);
    list->setColumnWidth(0, nameWidth);
    list->setColumnWidth(1, outcomeWidth);
    return list;
}

/// Written beside the old file first.
void writeText(const QString& path, const QString& text) {
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw Error(u"文件“%1”不能写入：%2。"_s.arg(QDir::toNativeSeparators(path), writeFailure(file)));
}

}  // namespace

ReportWindow::ReportWindow(QWidget* parent, const RunReport& report, const RunWords& words, bool mayRetry)
    : QDialog(parent), report_(report), words_(words) {
    setObjectName(u"frmBg"_s);
    setWindowTitle(u" "_s + words.deed + u"情况"_s);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* lines = new QVBoxLayout(this);
    const QString outcome = outcomeText(report, words);
    auto* lblBg = make<QLabel>(this, u"lblBg"_s, report.failure.isEmpty() ? outcome : outcome + u'\n' + report.failure);
    lblBg->setTextFormat(Qt::PlainText);
    lblBg->setWordWrap(true);
    lines->addWidget(lblBg);
    const QString heading = words.field.isEmpty() ? u"文件"_s : words.field;
    QTableView* list = makeList(this, new ReportModel(this, reportLines(report, words), heading));
    lines->addWidget(list, 1);
    makeButtons(mayRetry);
    resize(usualSize);
    list->setFocus();
}

void ReportWindow::makeButtons(bool mayRetry) {
    auto* row = new QHBoxLayout;
    cmdBc = make<QPushButton>(this, u"cmdBc"_s, buttonOfSaving);
    cmdCs = make<QPushButton>(this, u"cmdCs"_s, u"重 试"_s);
    cmdBg = make<QPushButton>(this, u"cmdBg"_s, u"关 闭"_s);
    cmdCs->setToolTip(u"再试一次失败的和没有做到的"_s);
    cmdCs->setEnabled(mayRetry && !placesToRetry(report_).isEmpty());
    cmdBg->setDefault(true);
    for (QPushButton* button : {cmdBc, cmdCs, cmdBg}) button->setMinimumWidth(buttonWidth);
    row->addWidget(cmdBc);
    row->addStretch(1);
    row->addWidget(cmdCs);
    row->addWidget(cmdBg);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    connect(cmdBc, &QPushButton::clicked, this, guarded(this, [this] { save(); }));
    connect(cmdBg, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdCs, &QPushButton::clicked, this, [this] {
        close();
        Q_EMIT retryAsked();
    });
}

void ReportWindow::save() {
    const QString proposal = QDir::home().filePath(words_.deed + u"情况.txt"_s);
    const QString path = askSaveFile(this, u"另存为文本"_s, u"文本文件|*.txt"_s, proposal);
    if (!path.isEmpty()) writeText(path, reportAsText(report_, words_));
}
