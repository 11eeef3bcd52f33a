// The SQLite library behind two small classes that close what they open.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/file_trouble.h"

struct sqlite3;
struct sqlite3_stmt;

namespace depcalc {

class Statement;

/// No text of a company file is longer.
inline constexpr std::size_t most_text_bytes = 4'194'304;

/// A connection to one database file. Every failure is thrown as a FileTrouble that names it, but
/// want of memory as std::bad_alloc.
class Database {
 public:
  enum class Access { read_write, create };

  /// `path` is absolute and free of symbolic links. `vfs` names the file system layer to use,
  /// "" the usual one; messages call the file `shown_path`, "" its path.
  Database(std::string path, Access access, const std::string& vfs, std::string shown_path = {});

  void execute(const std::string& sql);
  /// The same; false when another connection holds the file.
  bool tryExecute(const std::string& sql);
  /// The first column of the first row, or of the only one.
  [[nodiscard]] std::int64_t integer(const std::string& sql);
  [[nodiscard]] std::string text(const std::string& sql);
  [[nodiscard]] Statement prepare(std::string_view sql);

  /// The first `size` bytes of the file as they lie there, zeros behind its end. The file is
  /// locked and so holds no unfinished transaction.
  [[nodiscard]] std::string beginning(std::size_t size);

  /// Takes over all that `source` has committed, in the place of what is here.
  void copyFrom(Database& source);

  [[nodiscard]] bool readOnly() const;
  /// Whether a transaction is under way.
  [[nodiscard]] bool inTransaction() const;
  [[nodiscard]] const std::string& path() const { return path_; }

  /// Closes the file; the destructor does it too, but says nothing of it.
  void close() { handle_.reset(); }

 private:
  friend class Statement;
  struct Close {
    void operator()(sqlite3* handle) const;
  };

  /// Throws what `code` means unless it is success.
  void check(int code) const;
  [[noreturn]] void fail(int code) const;
  void setDefences();

  std::string path_;
  std::string shown_path_;
  std::unique_ptr<sqlite3, Close> handle_;
};

/// A prepared statement. Texts are bound without a copy and must live until the next `step`.
class Statement {
 public:
  Statement& bind(int parameter, std::int64_t value);
  Statement& bind(int parameter, std::string_view text);
  /// Whether there is a row. Behind the last one the statement starts anew.
  bool step();
  /// For statements without rows.
  void run();

  [[nodiscard]] bool isInteger(int column) const;
  [[nodiscard]] bool isText(int column) const;
  [[nodiscard]] std::int64_t integer(int column) const;
  [[nodiscard]] std::string_view text(int column) const;

 private:
  friend class Database;
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  Statement(Database& database, sqlite3_stmt* statement);

  Database* database_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace depcalc
