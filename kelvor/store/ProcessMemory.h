#pragma once

namespace kelvor
{

/**
 * Asks the C library to keep memory a process frees, for its next allocations, instead of
 * giving it back to the system. Call once, at the start of main.
 *
 * A command on a million-point track makes and frees several buffers of 80 to 180 MB (the
 * records the call path fills, the store's points). Given back each time, every page of the
 * next buffer is faulted in and zeroed anew, which on this kind of machine costs as much as
 * the work itself. The price is a process that keeps its peak size, which a host holding
 * scenarios of millions of points does anyway.
 */
void keepFreedMemoryForReuse();

} // namespace kelvor
