#pragma once

#include <opencv2/core/persistence.hpp>
#include <string>

/// JSON, YAML and XML documents.
namespace documents {

/// Opens a document for reading; it is not open when there is no such file, or a folder in its place. A document that
/// cannot be parsed, or that holds what OpenCV's parser does not come back from, is a `cv::Exception`, one of more
/// characters than `bounded::kLongestText` a `std::length_error`.
cv::FileStorage openForReading(const std::string& path);

/// Opens a document for writing, in the syntax of the name's extension; it is not open when it cannot be made.
///
/// A name with a question mark, or that ends in .gz or .gz and a digit, opens neither way: OpenCV would read or
/// overwrite the file of the name in front of the mark or the digit, and unpack what was not looked at.
cv::FileStorage openForWriting(const std::string& path);

}  // namespace documents
