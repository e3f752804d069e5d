#include "platform/desktop/toolkit_texts.h"

#include "../../support/run_all.h"

#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Latin words in what the parts of a window show.
QStringList englishIn(const QWidget* window) {
    static const QRegularExpression mark(u"\\(&.\\)|HTML"_s), latin(u"[A-Za-z]{2}"_s);
    QStringList words;
    for (const QWidget* part : window->findChildren<QWidget*>()) {
        QStringList texts{part->toolTip()};
        if (qobject_cast<const QLabel*>(part) || qobject_cast<const QAbstractButton*>(part))
            texts << part->property("text").toString();
        for (QString& text : texts)
            if (part->isVisible() && text.remove(mark).contains(latin)) words << text;
    }
    return words;
}

class TestToolkitTexts : public QObject {
    Q_OBJECT

    ToolkitTexts texts_;

  private Q_SLOTS:
    void initTestCase() { QCoreApplication::installTranslator(&texts_); }
    void cleanupTestCase() { QCoreApplication::removeTranslator(&texts_); }

    /// On a system without the toolkit's translations.
    void dialogsAreChinese() {
        QFileDialog opening(nullptr, u"打开"_s, QDir::tempPath());
        opening.setOption(QFileDialog::DontUseNativeDialog);
        QFileDialog saving(nullptr, u"保存"_s, QDir::tempPath());
        saving.setOption(QFileDialog::DontUseNativeDialog);
        saving.setAcceptMode(QFileDialog::AcceptSave);
        QColorDialog colours;
        colours.setOption(QColorDialog::DontUseNativeDialog);
        QMessageBox box(QMessageBox::Question, u"问"_s, u"？"_s,
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        for (QWidget* dialog : std::initializer_list<QWidget*>{&opening, &saving, &colours, &box}) {
            dialog->show();
            QCOMPARE(englishIn(dialog).join(u" | "_s), QString());
        }
    }
};

const Registered<TestToolkitTexts> registered;

}  // namespace

#include "toolkit_texts_test.moc"
