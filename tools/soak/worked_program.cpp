#include "soak/worked_program.h"

#include "catalogue/mektp.h"
#include "platform/base/files.h"
#include "platform/desktop/look.h"
#include "soak/full_disk.h"
#include "soak/scenes.h"
#include "start/first_catalogue.h"
#include "start/program.h"
#include "start/single_copy.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int restMs = 20;
}  // namespace

int workProgram(const QString& folder, quint64 seed, const Report& report, const std::function<QString()>& next) {
    setProgramFolder(folder);
    applyLook(*qApp);
    SingleCopy copy(mekTp::cataloguePath(), mekTp::lockPath());
    if (!copy.isOnly()) {
        report({u"fault"_s, u"refused to start: another copy seems to run"_s});
        return 1;
    }
    placeFirstCatalogue();
    int status = 0;
    {
        Program program;
        Scenes scenes(program, joinedPath(folder, u"run"_s), report, seed);
        program.start();
        report({u"ready"_s});
        const std::function<void()> playNext = [&] {
            const QString scene = next();
            if (scene.isEmpty()) {
                QCoreApplication::exit(0);
                return;
            }
            if (scene == restScene) {
                QTimer::singleShot(restMs, qApp, playNext);
                return;
            }
            try {
                scenes.play(scene);
                QTimer::singleShot(0, qApp, playNext);
            } catch (const std::exception& failure) {
                if (isDiskFull()) {
                    QCoreApplication::exit(0);
                    return;
                }
                report({u"fault"_s, scene, u"cannot be played:"_s, QString::fromUtf8(failure.what()), u"said:"_s,
                        scenes.said().mid(scenes.said().size() - 3).join(u" | "_s).replace(u'\n', u' ')});
                QCoreApplication::exit(1);
            }
        };
        QTimer::singleShot(0, qApp, playNext);
        status = QApplication::exec();
    }
    mekTp::catalogue = {};
    return status;
}
