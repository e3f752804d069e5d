#pragma once

#include "editor_window.h"
#include "platform/desktop/data_control.h"

/// The editor with its album chooser open.
struct Chooser : EditorWindow {
    Chooser() { press(QStringLiteral("sk")); }

    void chooseAlbum(const QString& line) const {
        auto* list = find<QComboBox>(QStringLiteral("cboBm"));
        list->setCurrentIndex(list->findText(line));
        Q_EMIT list->activated(list->currentIndex());
    }
    /// Opens a record of the album 旅行, by its row.
    void openRow(int row) const {
        chooseAlbum(QStringLiteral("tc01 旅行"));
        clickRow(row);
        click(QStringLiteral("cmdQd"));
    }
    QString label(const QString& name) const { return find<QLabel>(name)->text(); }
    int rows() const { return find<DataControl>(QStringLiteral("datBj"))->total(); }
    QString source() const { return find<DataControl>(QStringLiteral("datBj"))->RecordSource(); }
};

inline QString record(int number) {
    return QStringLiteral("SELECT * FROM tc01 WHERE 序号 = %1").arg(number);
}

inline QString column(int number, const QString& name) {
    return fieldOf(record(number), name).textOr();
}
