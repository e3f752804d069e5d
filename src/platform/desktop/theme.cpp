#include "platform/desktop/theme.h"

#include <array>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace theme {

QString filledIn(QString sheet) {
    // A name that begins with another one comes before it.
    constexpr std::array names{
        std::pair{"@accentTint"_L1, accentTint}, std::pair{"@accent"_L1, accent}, std::pair{"@muted"_L1, muted},
        std::pair{"@panel"_L1, panel},           std::pair{"@line"_L1, line},     std::pair{"@edge"_L1, edge},
        std::pair{"@firmEdge"_L1, firmEdge},     std::pair{"@groove"_L1, groove}, std::pair{"@shade"_L1, shade},
    };
    for (const auto& [name, colour] : names) sheet.replace(name, colour.name());
    Q_ASSERT(!sheet.contains(u'@'));
    return sheet;
}

}  // namespace theme
