#include "files/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace kelvor
{

bool AtomicFile::write(const std::string& path, const std::function<void(std::ostream&)>& write, std::string& error)
{
  const std::string temporary = path + ".saving";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out)
    {
      error = "cannot write " + temporary + ": " + std::strerror(errno);
      return false;
    }
    std::vector<char> buffer(1 << 20);
    out.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    write(out);
    out.flush();
    if (!out)
    {
      error = "cannot write " + temporary + ": " + std::strerror(errno);
      std::remove(temporary.c_str());
      return false;
    }
  }
  // The data must be on disk before the rename makes it the file.
  if (FILE* f = std::fopen(temporary.c_str(), "rb"))
  {
    ::fsync(fileno(f));
    std::fclose(f);
  }
  if (std::rename(temporary.c_str(), path.c_str()) != 0)
  {
    error = "cannot replace " + path + ": " + std::strerror(errno);
    std::remove(temporary.c_str());
    return false;
  }
  return true;
}

} // namespace kelvor
