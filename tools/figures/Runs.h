#pragma once

#include <filesystem>

namespace figures {

/// Walks the rendered set in `folder` through every run that its files allow: in memory with every switch on, from disk
/// with what that leaves out (turned, cropped, another focal length, detection only), as a frame, and as images
/// rectified elsewhere. Each run gets a folder of its own below `results`, with its tables, its records as text and its
/// status or the exception that it left by; the pictures only `with_pictures`, as forming their files takes longer than
/// the figures.
/// @return Whether every run came to its end with records.
bool walkRuns(const std::filesystem::path& folder, const std::filesystem::path& results, bool with_pictures);

}  // namespace figures
