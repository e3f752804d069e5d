#pragma once

#include "settings_window.h"

inline const QStringList boxNames{QStringLiteral("txtX1"), QStringLiteral("txtB1"), QStringLiteral("txtM1"),
                                  QStringLiteral("txtC1")};

/// The page 图册设置 with what its tests say and do.
class ButtonPage : public SettingsWindow {
  public:
    /// Codes in the order of the grid.
    QString codes() const {
        QString all;
        for (int row = 0; row < grid().model()->rowCount(); ++row) all += grid().cellText(row, 1);
        return all;
    }
    void choose(const QString& code) const { clickRow(static_cast<int>(codes().indexOf(code))); }
    QString chosenRow() const { return grid().cellText(grid().currentIndex().row(), 1); }

    /// 修 改 on the button of a code.
    void beginChange(const QString& code) const {
        choose(code);
        click(QStringLiteral("cmdBj"));
    }

    QStringList texts() const {
        QStringList all;
        for (const QString& name : boxNames) all << text(name);
        return all;
    }
    void fill(const QStringList& texts) const {
        for (int i = 0; i < texts.size(); ++i) box(boxNames.at(i)).setText(texts.at(i));
    }

    /// Captions, enabled states and locks, as one text.
    QString state() const {
        QStringList parts;
        for (const QString& name : {QStringLiteral("cmdQu"), QStringLiteral("cmdBj"), QStringLiteral("cmdSn")})
            parts << caption(name).remove(u' ') + (isEnabled(name) ? QStringLiteral("") : QStringLiteral("(-)"));
        for (const QString& name : boxNames) {
            if (box(name).isLocked() != box(boxNames.first()).isLocked()) parts << name;
        }
        parts << (box(boxNames.first()).isLocked() ? QStringLiteral("locked") : QStringLiteral("open"));
        return parts.join(u' ');
    }

    /// Whether the mouse meets the control at its middle.
    bool isOnTop(const QString& name) const {
        const QWidget& control = get<QWidget>(name);
        return form->childAt(control.mapTo(form.get(), control.rect().center())) == &control;
    }

    bool panelIsOpen() const { return get<QGroupBox>(QStringLiteral("fraCk")).isVisible(); }

    /// Loads a picture in the panel.
    void load(const QString& name, QSize pixels = {100, 75}) {
        picked = catalogue.file(name);
        writePicture(picked, pixels, Qt::magenta, name.endsWith(QStringLiteral("bmp")) ? "BMP" : "JPG");
        click(QStringLiteral("cmdCk(4)"), QStringLiteral("cmdAz"));
    }
};

/// States of the page that tests come by.
inline const QString noButton = QStringLiteral("添加 修改(-) 删除(-) locked");
inline const QString adding = QStringLiteral("保存 修改(-) 取消 open");
inline const QString changing = QStringLiteral("添加(-) 确定 取消 open");
inline const QString ownButton = QStringLiteral("添加 修改 删除 locked");
inline const QString justStored = QStringLiteral("添加 修改 删除(-) locked");

inline QString rowOf(const QString& code) {
    return QStringLiteral("SELECT * FROM tcan WHERE 编号 = ") + quoted(code);
}

inline QStringList storedTexts(const QString& code) {
    QStringList texts;
    for (const QString& column :
         {QStringLiteral("序号"), QStringLiteral("编号"), QStringLiteral("名称"), QStringLiteral("图册")})
        texts << valueOf(rowOf(code), column);
    return texts;
}

inline qint64 pictureLength(const QString& code) {
    const Recordset row = mekTp::catalogue.OpenRecordset(rowOf(code));
    return row.Fields(QStringLiteral("图片")).isNull() ? 0 : row.Fields(QStringLiteral("图片")).FieldSize();
}

inline int buttonCount() {
    return mekTp::catalogue.OpenRecordset(QStringLiteral("tcan")).rowCount();
}

inline const QString pictureQuestion =
    QStringLiteral("按钮图片没录入，如果以后另行录入，请按“确定”；\n\n如果现在录入，请按“取消”。");
inline const QString storeQuestion = QStringLiteral("如果选择本图片作为按钮图片，\n\n请按“确定”；否则按“取消”。");
