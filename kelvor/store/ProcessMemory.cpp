#include "store/ProcessMemory.h"

#include <malloc.h>

namespace kelvor
{

void keepFreedMemoryForReuse()
{
  // Large blocks come from the heap rather than from mappings of their own (a mapping goes back
  // to the system when freed), and up to 1 GiB freed at the heap's top stays there.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

} // namespace kelvor
