#pragma once

#include "platform/database/records/database.h"
#include "soak/hand.h"
#include "soak/report.h"
#include "soak/samples.h"

#include <QRandomGenerator>
#include <functional>
#include <map>

class Program;

/// What a person does with the program, one scene after another, each from the main window and back to it. Every scene
/// reports its doings in the words of the `Ledger`.
class Scenes {
  public:
    /// `folder` is for pictures and other catalogues that go in and out.
    Scenes(Program& program, const QString& folder, const Report& report, quint64 seed);
    ~Scenes();

    static QStringList names();
    void play(const QString& scene);

    const QStringList& said() const { return said_; }

  private:
    /// The pages of the settings window.
    static constexpr int setupPage = 0, intakePage = 1, editingPage = 2, transferPage = 3;

    static const std::map<QString, void (Scenes::*)()>& all();
    /// Runs what is worth being killed in.
    void work(const std::function<void()>& handler);
    /// A run that a button of the settings window begins, up to its closing message.
    void run(const QString& button, const QString& closing);
    void clickAndWait(const QString& button, const QString& closing);
    /// Does something, and waits until a box says what begins so.
    void waitForBox(const std::function<void()>& deed, const QString& closing);
    /// Throws when the disk has filled up meanwhile.
    static void requireRoom();
    void home() const;
    void settings(int page) const;
    void editor() const;

    void appendFiles();
    void stopIntake();
    void replaceFiles();
    void takeInCatalogue();
    void renumber();
    void editRecords();
    void deletePictures();
    void putBack();
    void emptyBin();
    void putAlbumBack();
    QString fillNewAlbum();
    void makeAndDeleteAlbum();
    void provePictures();
    void keepHashes();
    void takeFromBackup();
    void keepSteps();
    void exportPictures();
    void movePicturesToFiles();
    void copyToCatalogue();
    void moveToCatalogue();
    void addAndDeleteButton();
    void editAlbumPicture();
    void editFile();
    void makeButtonPicture();
    void browse();

    QString deleteRecord(const QString& album);
    void removeAlbum(const QString& table, const QStringList& pictures);
    void turnAll(const QStringList& pictures, const QString& from, const QString& to, bool isDone) const;
    QStringList makeSource(const QString& path);
    QString newFolder();
    QList<int> chosenRows(int count, int of);
    void giveName() const;
    void chooseFolder(const QString& folder) const;
    QStringList choosePictures(const QString& album, int count);
    QString chooseCatalogue();
    void chooseFiles(const QString& album, const QString& way, const QString& folder) const;
    void enterFiles(const QStringList& pictures);
    void openAlbumPicture(const QString& album);
    QByteArray fileIn(const QString& folder, const QString& name) const;
    void operate();
    void answer(const QString& text) const;

    Program& program_;
    QString folder_;
    const Report& report_;
    quint64 seed_;
    Samples samples_;
    QRandomGenerator random_;
    int folders_ = 0;
    QString file_;  ///< What file dialogs give.
    QStringList said_;
    QString scene_;
    QStringList preferred_;  ///< Answers that are given wherever they are offered.
    Hand viewer_{QStringLiteral("frmTp")}, settings_{QStringLiteral("frmSz")}, editor_{QStringLiteral("frmCl")};
};
