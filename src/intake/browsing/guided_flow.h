#pragma once

#include "settings/frame/frame_part.h"

#include <QString>

/// How far the guided flow of the pages 图片录入 and 图片转存 has come, and the tables that it has found: that from
/// which pictures come and that to which they go. A database is told by its path.
class GuidedFlow : public FramePart {
  public:
    int step() const { return step_; }
    void goTo(int step) { step_ = step; }

    const QString& sourceDatabase() const { return sourceDatabase_; }
    const QString& sourceTable() const { return sourceTable_; }
    const QString& targetDatabase() const { return targetDatabase_; }
    const QString& targetTable() const { return targetTable_; }

    void setSource(const QString& database, const QString& table) {
        sourceDatabase_ = database;
        sourceTable_ = table;
    }
    void setSourceTable(const QString& table) { sourceTable_ = table; }
    void setTarget(const QString& database, const QString& table) {
        targetDatabase_ = database;
        targetTable_ = table;
    }
    void setTargetTable(const QString& table) { targetTable_ = table; }

    void pageTurned() override {
        sourceTable_.clear();
        targetTable_.clear();
    }
    void albumLost() override { targetTable_.clear(); }

  private:
    int step_ = 0;
    QString sourceDatabase_, sourceTable_;
    QString targetDatabase_, targetTable_;
};
