// Reads a catalog file line by line, as fixed 100-column records, and remembers the byte offset
// after the last line so that a later call can reopen the file and go on where it stopped (the
// search keeps no file open between two "Next Match" clicks).
#pragma once

#include <cstdint>
#include <string>

namespace astel {

class CatalogReader {
 public:
  CatalogReader() = default;
  ~CatalogReader();
  CatalogReader(const CatalogReader&) = delete;
  CatalogReader& operator=(const CatalogReader&) = delete;

  // Opens the file and positions it at `offset` bytes (0: the header line). False when the file
  // cannot be opened or is not a regular file; an offset past the end reads as the end.
  bool Open(const std::string& path, std::int64_t offset = 0);
  void Close();
  bool IsOpen() const { return fd_ >= 0; }

  // The next line fitted to 100 columns (line end removed; LF, CRLF or CR alone end a line). False
  // at the end of the file, at a DOS end-of-file mark (Ctrl-Z) and after a read error.
  bool Next(std::string& record);

  // The next line with only its line end removed, cut to `maxLength` bytes.
  bool NextRaw(std::string& line, std::size_t maxLength = 4096);

  // Byte offset just after the last line returned.
  std::int64_t Offset() const { return offset_; }
  bool ReadFailed() const { return readFailed_; }

 private:
  bool Fill();

  int fd_ = -1;
  std::int64_t offset_ = 0;  // file position of buffer_[pos_]
  char buffer_[1 << 16];
  std::size_t pos_ = 0, end_ = 0;
  bool eof_ = false;
  bool readFailed_ = false;
};

// Reads the first line of a catalog. False when the file cannot be opened.
bool ReadFirstLine(const std::string& path, std::string& line);

}  // namespace astel
