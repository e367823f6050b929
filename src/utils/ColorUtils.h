#pragma once

#include <string>

namespace UTILS
{

/**
 * Reads a colour written as a number, decimal or with "0x" hexadecimal.
 * @param text the colour text, RGBA (red in the highest byte)
 * @param rgba true to answer RGBA as written; false to answer ABGR (red in the lowest byte), the
 *   order of overlay files
 * @return the colour; 0 for a text that is not a number
 */
unsigned int colorGetColorInt(const std::string& text, bool rgba);

} // namespace UTILS
