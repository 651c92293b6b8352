// The plain work that whole runs of the tool are timed against.
//
//   peers readwrite <in> <out>   read a file whole, write it back, flush it
//   peers sqlite <index> <db>    load as many rows as the index has records, save them in one transaction
//   peers walk <folder>          probe, list and read the configuration of each sub-folder

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::vector<char> ReadAll(const std::string& path) {
  std::vector<char> bytes(fs::file_size(path));
  std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

int ReadWrite(const std::string& in, const std::string& out) {
  const std::vector<char> bytes = ReadAll(in);
  const int file = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t wrote = write(file, bytes.data() + done, bytes.size() - done);
    if (wrote <= 0) return 1;
    done += static_cast<std::size_t>(wrote);
  }
  const bool flushed = fsync(file) == 0;
  close(file);
  return flushed ? 0 : 1;
}

// The same values that a record of the index holds, in one table.
constexpr int kTextColumns = 7;
constexpr int kNumberColumns = 9;

std::string Schema() {
  std::string text = "CREATE TABLE IF NOT EXISTS asset (kuid INTEGER PRIMARY KEY";
  for (int i = 0; i < kTextColumns; ++i)
    text += ", t" + std::to_string(i) + " TEXT";
  for (int i = 0; i < kNumberColumns; ++i)
    text += ", n" + std::to_string(i) + " INTEGER";
  return text + ")";
}

std::string Insert() {
  std::string text = "INSERT OR REPLACE INTO asset VALUES (?";
  for (int i = 0; i < kTextColumns + kNumberColumns; ++i)
    text += ",?";
  return text + ")";
}

int Sqlite(const std::string& index, const std::string& database) {
  std::uint32_t count = 0;
  std::ifstream head(index, std::ios::binary);
  head.seekg(12);
  head.read(reinterpret_cast<char*>(&count), sizeof count);

  sqlite3* db = nullptr;
  if (sqlite3_open(database.c_str(), &db) != SQLITE_OK) return 1;
  sqlite3_exec(db, Schema().c_str(), nullptr, nullptr, nullptr);

  struct Row {
    std::int64_t key = 0;
    std::string texts[kTextColumns];
    std::int64_t numbers[kNumberColumns] = {};
  };
  std::vector<Row> rows;
  sqlite3_stmt* select = nullptr;
  sqlite3_prepare_v2(db, "SELECT * FROM asset", -1, &select, nullptr);
  while (sqlite3_step(select) == SQLITE_ROW) {
    Row row;
    row.key = sqlite3_column_int64(select, 0);
    for (int i = 0; i < kTextColumns; ++i) {
      row.texts[i] = reinterpret_cast<const char*>(sqlite3_column_text(select, 1 + i));
    }
    for (int i = 0; i < kNumberColumns; ++i)
      row.numbers[i] = sqlite3_column_int64(select, 1 + kTextColumns + i);
    rows.push_back(std::move(row));
  }
  sqlite3_finalize(select);
  for (std::uint32_t i = static_cast<std::uint32_t>(rows.size()); i < count; ++i) {
    Row row;
    row.key = i;
    for (std::string& text : row.texts)
      text = "Mountain Valley Express " + std::to_string(i);
    rows.push_back(std::move(row));
  }

  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(db, Insert().c_str(), -1, &insert, nullptr);
  for (const Row& row : rows) {
    sqlite3_bind_int64(insert, 1, row.key);
    for (int i = 0; i < kTextColumns; ++i) {
      sqlite3_bind_text(insert, 2 + i, row.texts[i].c_str(), -1, SQLITE_STATIC);
    }
    for (int i = 0; i < kNumberColumns; ++i)
      sqlite3_bind_int64(insert, 2 + kTextColumns + i, row.numbers[i]);
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  const int result = sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  return result == SQLITE_OK ? 0 : 1;
}

int Walk(const std::string& top) {
  std::uint64_t bytes = 0;
  for (const auto& folder : fs::directory_iterator(top)) {
    const std::string path = folder.path().string();
    struct stat found {};
    if (stat((path + "/config.chump").c_str(), &found) == 0) continue;
    for (const auto& entry : fs::directory_iterator(path))
      bytes += fs::file_size(entry.path());
    bytes += ReadAll(path + "/config.txt").size();
  }
  std::printf("%llu\n", static_cast<unsigned long long>(bytes));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string what = argc > 1 ? argv[1] : "";
  if (what == "readwrite" && argc == 4) return ReadWrite(argv[2], argv[3]);
  if (what == "sqlite" && argc == 4) return Sqlite(argv[2], argv[3]);
  if (what == "walk" && argc == 3) return Walk(argv[2]);
  std::fprintf(stderr, "usage: peers readwrite|sqlite|walk ...\n");
  return 2;
}
