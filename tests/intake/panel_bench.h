#pragma once

#include "../support/found.h"
#include "../support/sample_catalogue.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/settings_frame.h"

#include <QtWidgets/QtWidgets>

/// A bare frame of four pages for a panel, on the sample catalogue, with its message boxes answered and kept.
class PanelBench {
  public:
    explicit PanelBench(int page) {
        sstFz->setCurrentIndex(page);
        form.resize(640, 480);
        answerBoxesWith([this](const BoxText& box) {
            said << box.text;
            return answer;
        });
    }
    ~PanelBench() { answerBoxesWith({}); }

    template <typename Control>
    Control& get(const QString& name) {
        return *found<Control>(&form, name);
    }
    QPushButton& button(const QString& name) { return get<QPushButton>(name); }
    void click(const QString& name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    QString label(const QString& name) { return get<QLabel>(name).text(); }
    QRect twips(const QString& name) {
        const auto& control = get<QWidget>(name);
        return {leftOf(&control), topOf(&control), widthOf(&control), heightOf(&control)};
    }
    QString path(const QString& name) const { return catalogue.file(name); }
    void write(const QString& name, const QByteArray& bytes) const { writeFile(path(name), bytes); }

    static TabControl* makeTabs(QWidget* form) {
        auto* tabs = make<TabControl>(form, QStringLiteral("sstFz"));
        place(tabs, 0, 0, 9600, 6840);
        for (int i = 0; i < 4; ++i) tabs->addPage(QString::number(i));
        return tabs;
    }

    SampleCatalogue catalogue;
    QWidget form;
    TabControl* sstFz = makeTabs(&form);
    HintLine hints{sstFz};
    UnfinishedWork work;
    AlbumEntry albums{sstFz};
    RecordGrid grid{sstFz};
    ChoiceList choices{sstFz};
    RunBar runBar{&form, sstFz};
    BinLine bin{&form};
    SettingsFrame frame{&form, sstFz, hints, work, albums, grid, choices, runBar, bin};
    QStringList said;
    bool answer = true;
};
