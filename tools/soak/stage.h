#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

/// Something that the program does in one go and without its windows, played by a process that can be killed at any
/// moment, and the files that it leaves in a folder.
class Stage {
  public:
    virtual ~Stage() = default;

    /// Makes the files that it begins with, in a folder that is there and empty.
    virtual void beginAnew() = 0;
    /// Looks at the files after a life of the process; returns a sentence for each fault. A life `isThrough` when it
    /// ended well by itself.
    virtual QStringList look(bool isThrough) = 0;
    /// Whether another life would find nothing to do.
    virtual bool isDone() const = 0;
    /// A folder whose disk may be taken away meanwhile; empty where there is none.
    virtual QString removable() const { return {}; }
    /// Whether only the engine writes, so that the layer that loses unsynced writes can be put below it.
    virtual bool isEngineAlone() const { return false; }
};

struct StageKind {
    QString name;
    std::function<std::unique_ptr<Stage>(const QString& folder, const QString& freshCatalogue)> make;
    std::function<bool(const QString& folder)> play;  ///< In a process of its own. True when it ended well.
};

StageKind conversionStage();
StageKind backupStage();
StageKind restoreStage();
StageKind raisingStage();
StageKind rescueStage();
