#include "catalog/catalog_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "catalog/catalog_record.h"

namespace astel {

namespace {

constexpr char kDosEndOfFile = '\x1A';

}  // namespace

CatalogReader::~CatalogReader() {
  Close();
}

bool CatalogReader::Open(const std::string& path, std::int64_t offset) {
  Close();
  int fd;
  do {
    fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  } while (fd < 0 && errno == EINTR);
  if (fd < 0) return false;
  struct stat st;
  if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
    ::close(fd);
    return false;
  }
  if (offset < 0) offset = 0;
  if (offset > 0 && ::lseek(fd, offset, SEEK_SET) < 0) offset = st.st_size;
  fd_ = fd;
  offset_ = offset;
  pos_ = end_ = 0;
  eof_ = offset >= st.st_size && offset > 0;
  readFailed_ = false;
  return true;
}

void CatalogReader::Close() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  pos_ = end_ = 0;
  eof_ = false;
}

bool CatalogReader::Fill() {
  if (eof_ || fd_ < 0) return false;
  if (pos_ < end_) std::memmove(buffer_, buffer_ + pos_, end_ - pos_);
  end_ -= pos_;
  pos_ = 0;
  for (;;) {
    const ssize_t n = ::read(fd_, buffer_ + end_, sizeof buffer_ - end_);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) readFailed_ = true;
    if (n <= 0) {
      eof_ = true;
      return false;
    }
    end_ += static_cast<std::size_t>(n);
    return true;
  }
}

bool CatalogReader::NextRaw(std::string& line, std::size_t maxLength) {
  line.clear();
  if (fd_ < 0) return false;
  bool any = false;
  for (;;) {
    if (pos_ == end_ && !Fill()) return any;
    if (!any && buffer_[pos_] == kDosEndOfFile) {
      eof_ = true;
      pos_ = end_ = 0;
      return false;
    }
    any = true;
    // Find the line end in what is buffered.
    const char* start = buffer_ + pos_;
    const std::size_t avail = end_ - pos_;
    // A CR counts only when it comes before the next LF, so each byte is looked at once.
    const char* stop = static_cast<const char*>(std::memchr(start, '\n', avail));
    const std::size_t segment = stop ? static_cast<std::size_t>(stop - start) : avail;
    if (const void* cr = std::memchr(start, '\r', segment)) stop = static_cast<const char*>(cr);
    const std::size_t take = stop ? static_cast<std::size_t>(stop - start) : avail;
    if (line.size() < maxLength) line.append(start, std::min(take, maxLength - line.size()));
    pos_ += take;
    offset_ += static_cast<std::int64_t>(take);
    if (!stop) continue;  // the line goes on in the next block
    // Consume the line end: LF, CR, or CR LF (which may straddle two blocks).
    const bool isCr = *stop == '\r';
    ++pos_;
    ++offset_;
    if (isCr) {
      if (pos_ == end_) Fill();
      if (pos_ < end_ && buffer_[pos_] == '\n') {
        ++pos_;
        ++offset_;
      }
    }
    return true;
  }
}

bool CatalogReader::Next(std::string& record) {
  if (!NextRaw(record, kRecordWidth)) return false;
  record.resize(kRecordWidth, ' ');
  return true;
}

bool ReadFirstLine(const std::string& path, std::string& line) {
  CatalogReader reader;
  if (!reader.Open(path)) return false;
  if (!reader.NextRaw(line)) line.clear();  // an empty file has an empty header
  return !reader.ReadFailed();
}

}  // namespace astel
