#include "platform/database/file/connection.h"

#include "platform/base/system_reason.h"
#include "platform/database/dialect/sql_functions.h"
#include "platform/database/file/database_file.h"
#include "platform/database/file/disk_ahead.h"
#include "platform/database/file/disk_behind.h"
#include "platform/database/file/engine_errors.h"
#include "platform/database/file/file_check.h"
#include "platform/database/file/free_space.h"
#include "platform/database/file/lenient_opening.h"
#include "platform/database/file/literal_paths.h"

#include <sqlite3.h>

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int busyTimeoutMs = 2000;
constexpr int busyStepMs = 2;
constexpr int applicationId = 0x6C756E71;  // "lunq"
constexpr int firstVersion = 1;
constexpr int newestVersion = 2;  // see OwnValues
/// Pages (41 MB) of a change that are kept in memory until it is stored: what is written earlier takes three more waits
/// for the disk, and keeps all readers out from then on. No multiple of 256: the engine takes the last byte for the
/// answer whether to do so at all.
constexpr int spillsBehindPages = 2500;
const QString truncatingJournal = u"PRAGMA journal_mode = TRUNCATE"_s;

// To shorten the file, the engine moves used pages (16 KB each) into the place of free ones.
constexpr int freePagesKept = 256;         ///< So few free pages stay in the file.
constexpr qint64 pagesMovedAtOnce = 4096;  ///< So many pages may be moved in one go,
constexpr int partMovedAtOnce = 8;         ///< or one for so many free pages if that is more,
constexpr qint64 mostMovedAtOnce = 8192;   ///< but no more than 128 MB. Where more have to be moved,
constexpr int pagesPerStep = 512;          ///< the file is shortened in steps of so many free pages,
constexpr int giveBackMs = 100;            ///< for so long at a time,
constexpr int pauseMs = 1000;              ///< and with such pauses.
const QString stepwise = u"PRAGMA auto_vacuum = INCREMENTAL"_s;

/// Of this thread: the engine's handle and what belongs to it are never used by two at a time.
std::vector<std::weak_ptr<Connection>>& openConnections() {
    thread_local std::vector<std::weak_ptr<Connection>> connections;
    return connections;
}

std::shared_ptr<Connection> openConnection(const QString& path) {
    auto& connections = openConnections();
    std::erase_if(connections, [](const auto& connection) { return connection.expired(); });
    const QString canonical = QFileInfo(path).canonicalFilePath();
    for (const auto& weak : connections) {
        auto connection = weak.lock();
        if (connection && QFileInfo(connection->path()).canonicalFilePath() == canonical && !connection->isOutdated()) {
            return connection;
        }
    }
    return nullptr;
}

/// Nobody may look into a file while another thread opens it for the first time.
std::mutex& opening() {
    static std::mutex mutex;
    return mutex;
}

bool hasDatabaseHeader(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(u"数据库文件“%1”不能打开：%2。"_s.arg(path, systemReason(file.errorString())));
    return file.read(16) == QByteArray("SQLite format 3\0", 16);
}

/// The journal is next to the file itself, not next to a link to it.
int openFlags(const QString& path) {
    if (LenientOpening::isOn()) return SQLITE_OPEN_READONLY;
    const QFileInfo file(QFileInfo(path).canonicalFilePath());
    const bool writable = file.isWritable() && QFileInfo(file.absolutePath()).isWritable();
    return writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
}

/// The other user of the file may be this program's own check of it.
int waitForOthers(void*, int tried) {
    FileCheck::interruptAll();
    sqlite3_sleep(busyStepMs);
    return tried < busyTimeoutMs / busyStepMs ? 1 : 0;
}

/// Before the engine begins. Its count of the memory in use, which nobody asks for, would make threads wait for each
/// other with every page.
void takePartInFiles() {
    [[maybe_unused]] static const int counts = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    DiskAhead::takePartInReads();
    DiskBehind::takePartInWrites();
}

SQLite::Database openDatabase(const QString& path, int flags, const char* fileSystem = "") {
    takePartInFiles();
    try {
        SQLite::Database database(path.toStdString(), flags, 0, fileSystem);
        sqlite3_busy_handler(database.getHandle(), waitForOthers, nullptr);
        return database;
    } catch (const SQLite::Exception& failure) {
        throw engineError(path, failure.getErrorCode(), QString::fromUtf8(failure.what()));
    }
}

bool isInTransaction(const Connection& connection) {
    return sqlite3_get_autocommit(connection.handle()) == 0;
}

/// When a failure has cost the whole transaction, its later statements must not be stored alone.
void requireTransaction(const Connection& connection) {
    if (isInTransaction(connection)) return;
    throw Error(u"数据库文件“%1”：读写失败，这一组更改已全部撤消。"_s.arg(connection.path()));
}

}  // namespace

std::shared_ptr<Connection> Connection::open(const QString& path) {
    requireDatabaseFile(path);
    if (auto shared = openConnection(path)) return shared;
    const std::lock_guard lock(opening());
    const std::shared_ptr<Connection> connection(new Connection(path, openFlags(path), fileAt(path)));
    connection->configure();
    connection->requireKnownVersion();
    openConnections().push_back(connection);
    return connection;
}

/// Looks into a file only when nothing in this process has it open.
std::shared_ptr<SharedFile> Connection::fileAt(const QString& path) {
    if (auto file = SharedFile::find(path)) return file;
    if (ForeignCopy::isJetFile(path)) return SharedFile::add(path, std::make_unique<ForeignCopy>(path));
    if (!hasDatabaseHeader(path)) throw Error(u"文件“%1”不是数据库，或已损坏。"_s.arg(path), Error::Kind::damage);
    return nullptr;
}

bool Connection::isJetFile(const QString& path) {
    requireDatabaseFile(path);
    const std::lock_guard lock(opening());
    const auto shared = SharedFile::find(path);
    return shared ? shared->foreign() != nullptr : ForeignCopy::isJetFile(path);
}

std::shared_ptr<Connection> Connection::create(const QString& path) {
    const std::lock_guard lock(opening());
    if (QFileInfo::exists(path)) throw Error(u"文件“%1”已存在，不能新建。"_s.arg(path));
    const std::shared_ptr<Connection> connection(new Connection(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
    connection->run(u"PRAGMA page_size = 16384"_s);
    connection->run(stepwise);
    connection->configure();
    connection->run(truncatingJournal);
    Change change(*connection);
    connection->run(u"PRAGMA application_id = %1"_s.arg(applicationId));
    connection->run(u"PRAGMA user_version = %1"_s.arg(firstVersion));
    connection->run(LongBinaries::createTableSql());
    change.commit();
    openConnections().push_back(connection);
    return connection;
}

std::shared_ptr<Connection> Connection::toCopy(const QString& path, std::unique_ptr<ForeignCopy> copy) {
    const std::shared_ptr<Connection> connection(
        new Connection(path, SQLITE_OPEN_READONLY, SharedFile::alone(path, std::move(copy))));
    connection->configure();
    return connection;
}

Connection::Connection(const QString& path, int flags, std::shared_ptr<SharedFile> file)
    : path_(path),
      file_(std::move(file)),
      database_(file_ && file_->foreign() ? openDatabase(file_->foreign()->file(), SQLITE_OPEN_READONLY, literalPaths())
                                          : openDatabase(path, flags)),
      longBinaries_(*this) {
    if (!file_) file_ = SharedFile::add(path);
    setUpDialect(handle());
    pause_.setSingleShot(true);
    pause_.setInterval(pauseMs);
    pause_.callOnTimeout([this] { giveBackInPause(); });
}

/// A file of another program, and one that was only read, keeps its free space.
Connection::~Connection() {
    attempt([this] {
        if (sqlite3_total_changes64(handle()) + otherChanges_ > 0 && isOurs()) giveBackSpace();
    });
}

void Connection::configure() {
    if (LenientOpening::isOn()) run(u"PRAGMA writable_schema = ON"_s);  // otherwise a file that is cut off stays closed
    run(u"PRAGMA cache_size = -16000"_s);
    run(u"PRAGMA cache_spill = %1"_s.arg(spillsBehindPages));
    run(u"PRAGMA synchronous = FULL"_s);
    run(u"PRAGMA secure_delete = OFF"_s);
    run(u"SELECT count(*) FROM sqlite_schema"_s);  // the first look into the file: throws when it is damaged
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);  // until something is written
}

bool Connection::isOurs() {
    return !isForeign() && number(u"PRAGMA application_id"_s) == applicationId;
}

int Connection::version() {
    return int(number(u"PRAGMA user_version"_s));
}

void Connection::requireKnownVersion() {
    if (!isOurs() || version() <= newestVersion) return;
    throw Error(u"数据库文件“%1”由更新的版本建立，请用新版软件打开。"_s.arg(path_));
}

/// Settings that would write into the file wait for the first change of its content. The journal's mode can be kept in
/// the file: another program's file keeps its own.
void Connection::takeForWriting() {
    if (isTakenForWriting_) return;
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    isTakenForWriting_ = attempt([this] {
        if (!isOurs()) return;
        run(truncatingJournal);
        if (isShortenedByEveryChange(handle())) run(stepwise);  // the program was killed while it shortened the file
    });
}

void Connection::requireOurs() const {
    if (file_->isKeptFromChanges())
        throw Error(u"数据库文件“%1”有损坏，现在只能读取，不能更改。"_s.arg(path_), Error::Kind::damage);
    if (!isForeign()) return;
    throw Error(u"数据库文件“%1”是其他软件的格式，只能读取，不能写入。请选择本软件的像册文件。"_s.arg(path_));
}

bool Connection::isOutdated() const {
    if (isForeign()) return !file_->foreign()->isCurrent();
    int moved = 0;
    sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

bool Connection::isWritable() const {
    return sqlite3_db_readonly(handle(), "main") == 0;
}

qint64 Connection::number(const QString& sql) {
    auto statement = kept(sql);
    return step(*statement) ? statement->getColumn(0).getInt64() : 0;
}

SQLite::Statement Connection::prepare(const QString& sql, const QString& table) {
    try {
        return SQLite::Statement(database_, sql.toStdString());
    } catch (const SQLite::Exception& failure) {
        throw error(failure.getErrorCode(), table);
    }
}

KeptStatements::Use Connection::kept(const QString& sql, const QString& table) {
    try {
        return kept_.use(sql);
    } catch (const SQLite::Exception& failure) {
        throw error(failure.getErrorCode(), table);
    }
}

void Connection::run(const QString& sql, const QString& table) {
    SQLite::Statement statement = prepare(sql, table);
    while (step(statement)) {
    }
}

bool Connection::step(SQLite::Statement& statement) {
    return checked([&] { return statement.executeStep(); });
}

std::vector<Column> Connection::columnsOf(const QString& table) {
    std::vector<Column> columns;
    if (isReservedTable(table)) return columns;
    auto list = kept(
        u"SELECT name, type FROM pragma_table_info(?) WHERE EXISTS "
        "(SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = ? COLLATE NOCASE)"_s);
    const std::string name = table.toStdString();
    checked([&] {
        list->bind(1, name);
        list->bind(2, name);
    });
    while (step(*list)) {
        columns.push_back(declaredColumn(QString::fromStdString(list->getColumn(0).getString()),
                                         QString::fromStdString(list->getColumn(1).getString())));
    }
    return columns;
}

qint64 Connection::changeCount() const {
    return sqlite3_total_changes64(handle()) + otherChanges_ + file_->changes();
}

void Connection::noteRowIds(const QString& table, qint64 highest) {
    file_->noteRowIds(table, highest);
}

qint64 Connection::newRowId(const QString& table) {
    return file_->newRowId(table, number(u"SELECT max(_rowid_) FROM "_s + quotedName(table)));
}

void Connection::giveBackSpaceLater() {
    if (QAbstractEventDispatcher::instance() != nullptr) pause_.start();
}

/// While another thread has the file open, it may be writing: the one that gives space back would wait for it.
void Connection::giveBackInPause() {
    if (file_.use_count() > 1)
        pause_.start();
    else
        attempt([this] { giveBackSpace(); });
}

void Connection::giveBackSpace() {
    isSpaceToGiveBack_ = openChanges_ > 0;
    if (isSpaceToGiveBack_ || !isWritable()) return;
    const FreeSpace space = freeSpace(handle());
    if (space.pages <= freePagesKept) return;
    longBinaries_.release();
    const qint64 quicklyMoved = std::clamp(space.pages / partMovedAtOnce, pagesMovedAtOnce, mostMovedAtOnce);
    if (isShortenedBySteps_ || space.pagesToMove > quicklyMoved || !shortenFile()) movePages(space.pages);
}

/// The engine drops all free pages at the end of a change in the mode FULL. Step by step it would look for each of them
/// in the list of all: for 3 GB that takes half a minute instead of a second.
bool Connection::shortenFile() {
    isShortenedBySteps_ = !attempt([this] { run(u"PRAGMA auto_vacuum = FULL"_s); });
    if (!attempt([this] { run(stepwise); })) isTakenForWriting_ = false;  // the next change does it
    return !isShortenedBySteps_;
}

void Connection::movePages(qint64 freePages) {
    QElapsedTimer timer;
    timer.start();
    qint64 left = freePages;
    while (left > freePagesKept && timer.elapsed() < giveBackMs) {
        run(u"PRAGMA incremental_vacuum(%1)"_s.arg(pagesPerStep));
        left = freeSpace(handle()).pages;
    }
    if (left < freePages) giveBackSpaceLater();
}

Error Connection::error(int code, const QString& table) const {
    const int extended = sqlite3_extended_errcode(handle());
    const bool isSame = (extended & 0xff) == (code & 0xff);
    return engineError(path_, isSame ? extended : code, QString::fromUtf8(sqlite3_errmsg(handle())),
                       sqlite3_system_errno(handle()), table);
}

Error Connection::missingTable(const QString& table) const {
    return Error(u"数据库文件“%1”：表“%2”不存在。"_s.arg(path_, table));
}

Change::Change(Connection& connection) : connection_(connection), outermost_(connection.openChanges_ == 0) {
    connection_.requireOurs();
    connection_.longBinaries().release();
    if (outermost_)
        connection_.takeForWriting();
    else
        requireTransaction(connection_);
    connection_.step(*connection_.kept(outermost_ ? u"BEGIN IMMEDIATE"_s : u"SAVEPOINT change"_s));
    ++connection_.openChanges_;
}

Change::~Change() {
    if (!open_) return;
    --connection_.openChanges_;
    connection_.longBinaries().release();
    connection_.noteChange();
    if (!isInTransaction(connection_)) return;  // the engine has taken everything back itself
    attempt([this] { connection_.run(outermost_ ? u"ROLLBACK"_s : u"ROLLBACK TO change"_s); });
    if (!outermost_) attempt([this] { connection_.step(*connection_.kept(u"RELEASE change"_s)); });
}

void Change::commit() {
    connection_.longBinaries().release();
    requireTransaction(connection_);
    connection_.step(*connection_.kept(outermost_ ? u"COMMIT"_s : u"RELEASE change"_s));
    --connection_.openChanges_;
    open_ = false;
    if (outermost_) connection_.file_->noteChange();
    if (connection_.isSpaceToGiveBack_ && outermost_) attempt([this] { connection_.giveBackSpace(); });
}
