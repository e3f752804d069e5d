#pragma once

#include "platform/database/records/recordset.h"

#include <QIODevice>

/// A long-binary value as a random-access device, so that a decoder can read it piece by piece instead of holding it
/// whole. Reading only; valid while the recordset stays on its record. When it goes, nothing keeps other programs from
/// writing any more.
class FieldDevice : public QIODevice {
    Q_OBJECT

  public:
    explicit FieldDevice(const Field& field);
    ~FieldDevice() override;

    bool isSequential() const override { return false; }
    qint64 size() const override { return size_; }

  protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

  private:
    Field field_;
    qint64 size_;
};
