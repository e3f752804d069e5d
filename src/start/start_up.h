#pragma once

#include "platform/database/records/database.h"
#include "start/single_copy.h"

#include <memory>
#include <optional>

class Program;

/// What has to hold before the windows come: this is the only copy of the program on its catalogue, and the catalogue
/// can be opened. Where it cannot, another file may be chosen for this time, and one that is damaged be mended. A
/// catalogue that is missing is no obstacle. The object has to outlive the open catalogue (see `SingleCopy`).
class StartUp {
  public:
    /// False when the program is to end; a message box has said why.
    bool isReady();

    /// Shows the first window. The catalogue that was opened to look at it is not read once more for that.
    void start(Program& program) const;

  private:
    bool isOnlyCopy();
    struct Fault {
        QString text;
        bool isDamage = false;
    };
    std::optional<Fault> fault() const;
    bool mend(const Fault& fault);
    bool chooseAnother();
    bool take(const QString& catalogue);
    void useCatalogue(const QString& path);

    std::unique_ptr<SingleCopy> copy_;
};
