// Names for photos on their way into a folder.
#pragma once

#include <string>

namespace pixorra {

class Files;

// A folder that takes none of so many names, though they looked free, takes none.
inline constexpr int MostNames = 100;

// The last full stop of a file name and what is after it; empty where there is none.
std::string ExtensionOf(const std::string& name);
// The name as it is where it is free in the folder, else with its trailing number raised until it is. Empty where
// folder, name or the name's base is empty.
std::string MakeUniqueName(Files& files, const std::string& folder, const std::string& name);
// "PXR", one above the highest number of the folder's names of that form and extension, in five digits or more. Raises
// Overflow where that number, or the next one, leaves 32 bits.
std::string MakeGeneratedName(Files& files, const std::string& folder, const std::string& name);

}  // namespace pixorra
