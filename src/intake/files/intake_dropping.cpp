// The part of the page 图片录入 that takes dropped files as the selection.

#include "intake/files/intake_page.h"
#include "platform/desktop/message_box.h"
#include "settings/frame/name_lists.h"

#include <QFileInfo>
#include <QRadioButton>
#include <QSet>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

/// The steps are those of a person, up to the choice. The run is begun by cmdLr.
void IntakePage::filesDropped(const QStringList& paths) {
    if (!targetIsFit()) return;
    const QFileInfo first(paths.front());
    const bool areTogether = std::ranges::all_of(paths, [&](const QString& path) {
        return QFileInfo(path).absolutePath() == first.absolutePath() && !QFileInfo(path).isDir();
    });
    if (!areTogether && (paths.size() > 1 || !first.isDir())) {
        say(frame_.form, u"一次可以拖入一个文件夹，或同一个文件夹里的文件。"_s);
        return;
    }
    optYl_[0]->click();
    optCz_[1]->click();
    if (first.isDir())
        chooseFolder(first.absoluteFilePath());
    else
        chooseFiles(first.absolutePath(), paths);
}

void IntakePage::chooseFolder(const QString& folder) {
    browser_.goTo(folder);
    choosesAllOf_ = browser_.folder();
    chooseAllIfWanted();
}

/// What is below the folder may still be searched for; then this is called again. So it is when all formats are listed.
void IntakePage::chooseAllIfWanted() {
    if (browser_.isSearching() || choosesAllOf_ != browser_.folder()) return;
    const bool isEmpty = browser_.fileNames().isEmpty();
    if (isEmpty && !browser_.listsAllFormats()) {
        browser_.listAllFormats();
        return;
    }
    choosesAllOf_.reset();
    if (isEmpty)
        say(frame_.form, u"这个文件夹里没有可以录入的图片。"_s);
    else
        cmdQxClick();
}

void IntakePage::chooseFiles(const QString& folder, const QStringList& paths) {
    QStringList names;
    names.reserve(paths.size());
    for (const QString& path : paths) names << QFileInfo(path).fileName();
    const auto withoutListed = [this](QStringList others) {
        const QStringList all = browser_.fileNames();
        const QSet<QString> listed(all.begin(), all.end());
        others.removeIf([&](const QString& name) { return listed.contains(name); });
        return others;
    };
    browser_.listOneFolder();
    browser_.goTo(folder);
    QStringList missing = withoutListed(names);
    if (!missing.isEmpty()) {
        browser_.listAllFormats();
        missing = withoutListed(missing);
    }
    browser_.selectNames(names);
    if (!missing.isEmpty()) say(frame_.form, u"这些文件不是可以录入的图片："_s + someOf(missing));
}
