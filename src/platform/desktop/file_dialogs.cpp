#include "platform/desktop/file_dialogs.h"

#include "platform/base/files.h"
#include "platform/desktop/message_box.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QRegularExpression>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

std::function<QString(const FileQuestion&)>& answer() {
    static std::function<QString(const FileQuestion&)> function;
    return function;
}

/// The dialog asks about an existing file in the words of the program.
class Dialog : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

  protected:
    void accept() override {
        const QStringList files = selectedFiles();
        const QString chosen = files.isEmpty() ? QString() : files.first();
        if (QFileInfo::exists(chosen) && !fileExists(chosen) && !folderExists(chosen)) {
            say(this, u"“%1”是设备或管道，不是文件，请另选一个。"_s.arg(QDir::toNativeSeparators(chosen)));
            return;
        }
        const bool exists = acceptMode() == AcceptSave && fileExists(chosen);
        if (!exists || ask(this, u"文件[%1]已存在，要覆盖它吗？\n\n按“确定”覆盖；否则按“取消”。"_s.arg(
                                     QDir::toNativeSeparators(chosen))))
            QFileDialog::accept();
    }
};

/// "JPG文件|*.jpg;*.jpeg" as "JPG文件 (*.jpg *.jpeg)", one entry a pair. A name that ends in its pattern has it
/// already.
QStringList nameFilters(const QString& filter) {
    const QStringList parts = filter.split(u'|');
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        result.append(parts[i].endsWith(u'(' + parts[i + 1] + u')')
                          ? parts[i]
                          : u"%1 (%2)"_s.arg(parts[i], QString(parts[i + 1]).replace(u';', u' ')));
    return result;
}

/// The suffix that the first pattern of a name filter ends in, empty for `*.*` and the like.
QString suffixOf(const QString& nameFilter) {
    static const QRegularExpression pattern(u"\\(\\*\\.([^*?\\s)]+)"_s);
    return pattern.match(nameFilter).captured(1);
}

QString pick(QWidget* parent, const FileQuestion& question) {
    if (const auto answers = answer()) return answers(question);

    const QPointer<Dialog> dialog = new Dialog(parent, question.title);
    dialog->setObjectName(u"fileDialog"_s);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setAcceptMode(question.saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    const bool mayBeNew = question.saving || question.mayBeNew;
    dialog->setFileMode(mayBeNew ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->setLabelText(QFileDialog::LookIn, u"位置："_s);
    dialog->setLabelText(QFileDialog::FileName, u"文件名："_s);
    dialog->setLabelText(QFileDialog::FileType, u"文件类型："_s);
    dialog->setLabelText(QFileDialog::Accept, question.saving ? u"保存"_s : question.mayBeNew ? u"确定"_s : u"打开"_s);
    dialog->setLabelText(QFileDialog::Reject, u"取消"_s);
    if (const QStringList filters = nameFilters(question.filter); !filters.isEmpty()) {
        dialog->setNameFilters(filters);
        const QString chosen = filters.value(question.filterIndex - 1, filters.first());
        dialog->selectNameFilter(chosen);
        if (mayBeNew) {
            dialog->setDefaultSuffix(suffixOf(chosen));
            QObject::connect(dialog, &QFileDialog::filterSelected, dialog,
                             [&dialog](const QString& filter) { dialog->setDefaultSuffix(suffixOf(filter)); });
        }
    }
    if (!question.proposal.isEmpty()) {
        const QFileInfo proposal(question.proposal);
        if (proposal.isDir()) {
            dialog->setDirectory(proposal.absoluteFilePath());
        } else {
            const QDir folder = proposal.absoluteDir();  // the folder may be gone with its disk
            if (proposal.isAbsolute()) dialog->setDirectory(folder.exists() ? folder : QDir::home());
            dialog->selectFile(proposal.fileName());
        }
    }
    const int result = dialog->exec();
    if (!dialog) return {};
    const QStringList files = dialog->selectedFiles();
    delete dialog;
    return result == QDialog::Accepted && !files.isEmpty() ? QDir::toNativeSeparators(files.first()) : QString();
}

}  // namespace

QString askOpenFile(QWidget* parent, const QString& title, const QString& filter, const QString& proposal,
                    int filterIndex) {
    return pick(parent, {title, filter, proposal, false, filterIndex});
}

QString askFilePath(QWidget* parent, const QString& title, const QString& filter, const QString& proposal) {
    return pick(parent, {.title = title, .filter = filter, .proposal = proposal, .saving = false, .mayBeNew = true});
}

QString askSaveFile(QWidget* parent, const QString& title, const QString& filter, const QString& proposal) {
    return pick(parent, {title, filter, proposal, true});
}

void answerFileDialogsWith(std::function<QString(const FileQuestion&)> function) {
    answer() = std::move(function);
}
