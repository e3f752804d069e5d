#pragma once

#include <QList>
#include <QObject>

class QWidget;

/// Lets Enter and Down lead from one box to the next of a ring, and Up to the one before.
class KeyWalk : public QObject {
    Q_OBJECT

  public:
    KeyWalk(const QList<QWidget*>& ring, QObject* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QList<QWidget*> ring_;
};
