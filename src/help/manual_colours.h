#pragma once

#include <QString>

/// The manual in colours that go with the ground that the program wears. In the light colours it stays as it is.
QString inWornColours(const QString& html);
