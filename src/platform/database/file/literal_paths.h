#pragma once

#include <fcntl.h>
#include <sqlite3.h>

#include <cstring>
#include <string_view>

/// Name of a file system of the engine that opens a path as it is. Usually the engine first follows the links in a path
/// and then refuses to open a link. But `/proc/self/fd/7`, by which a file without a name can be opened, is a link to a
/// name that does not exist.
inline const char* literalPaths() {
    static sqlite3_vfs literal = [] {
        sqlite3_vfs usual = *sqlite3_vfs_find("unix");
        usual.zName = "literal paths";
        usual.xFullPathname = [](sqlite3_vfs*, const char* path, int room, char* full) {
            if (std::strlen(path) >= size_t(room)) return SQLITE_CANTOPEN;
            std::strcpy(full, path);
            return SQLITE_OK;
        };
        int (*const openFile)(const char*, int, int) = [](const char* path, int flags, int rights) {
            if (std::string_view(path).starts_with("/proc/self/fd/")) flags &= ~O_NOFOLLOW;
            return open(path, flags, rights);
        };
        usual.xSetSystemCall(&usual, "open", reinterpret_cast<sqlite3_syscall_ptr>(openFile));
        return usual;
    }();
    static const bool isKnown = sqlite3_vfs_register(&literal, 0) == SQLITE_OK;
    return isKnown ? literal.zName : "";
}
