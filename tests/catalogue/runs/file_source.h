#pragma once

#include "../../support/sample_catalogue.h"
#include "../../support/stored_records.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/file_intake.h"
#include "watching.h"

/// A catalogue, and a folder of files to take in.
class Source {
  public:
    void add(const QString& name, const QByteArray& bytes) {
        writeFile(path(name), bytes);
        names_ << name;
    }
    void add(const QString& name) { add(name, pictureBytes({60, 45}, Qt::darkGreen)); }
    void addTruncated(const QString& name) {
        const QByteArray whole = pictureBytes({400, 300}, Qt::darkGreen);
        add(name, whole.first(whole.size() * 2 / 3));
    }

    QString path(const QString& name) const { return folder_.filePath(name); }
    QByteArray bytesOf(const QString& name) const { return contentOf(path(name)); }
    bool isStored(const QString& table, int number, const QString& name) const {
        return stored(table, number).startsWith(bytesOf(name));
    }

    /// All files, in the order in which they were added.
    IntakeOrder order(bool replace = false) const {
        IntakeOrder order{.folder = folder_.path(), .names = names_, .replace = replace};
        for (int i = 0; i < names_.size(); ++i) order.selected << i;
        return order;
    }
    RunReport enter(const QString& table, const IntakeOrder& order) {
        return wjlr(mekTp::catalogue, table, order, watch);
    }
    RunReport enter(const QString& table, bool replace = false) { return enter(table, order(replace)); }

    Watching watch;

  private:
    SampleCatalogue catalogue_;
    QTemporaryDir folder_;
    QStringList names_;
};
