#pragma once

#include "platform/database/records/database.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <functional>

class QPushButton;
struct JoinOrder;

/// The button on the page 图片录入 by which all albums of an old catalogue, which is chosen as source, join the open
/// one.
class WholeCatalogue : public QObject {
    Q_OBJECT

  public:
    explicit WholeCatalogue(const SettingsFrame& frame);

    /// A database was chosen as source, or none is any more (a closed one): the button is there for an old catalogue.
    void offer(const Database& source);

  Q_SIGNALS:
    void over();  ///< All of it is done, or as much as was possible: the source is to be given up.

  private:
    void join();
    bool mayBegin() const;
    bool askAboutJoined(JoinOrder& order) const;
    bool askAboutCodes(JoinOrder& order) const;
    void finish(const RunReport& report);

    SettingsFrame frame_;
    Database source_;
    QStringList before_;  ///< Albums before the run.
    QPushButton* cmdZx;   ///< Takes in all albums.
};
