#include "platform/database/records/reading_alone.h"

#include "platform/database/file/connection.h"
#include "platform/database/records/own_values.h"

void keepFromChanges(const Database& database) {
    OwnValues(database).connection()->keepFromChanges();
}
