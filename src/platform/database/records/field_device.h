#pragma once

#include "platform/database/records/recordset.h"

#include <QIODevice>

/// A long-binary value as a random-access device, for decoders that read it piece by piece. Reading only; valid while
/// the recordset stays on its record. An open value keeps other programs from writing; the destructor closes it.
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
