#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace scene {

/// What a number of a scene file may be.
struct Span {
  double low = 0.0;
  double high = 0.0;
  bool single = false;  ///< Taken to the nearest number of single precision.
};

/// The members of one object of a scene file. A description of the format walks them once for both ways: a reader puts
/// what it finds into the values and leaves the others as they are, a writer tells the values.
class Fields {
 public:
  using Members = std::function<void(Fields&)>;

  Fields() = default;
  Fields(const Fields&) = delete;
  Fields& operator=(const Fields&) = delete;
  virtual ~Fields() = default;

  /// Whether the reader finds the key. A writer finds none.
  virtual bool has(const char* key) = 0;

  virtual void number(const char* key, double& value, Span span) = 0;
  /// A number that stands for several others: read, never written.
  virtual void shorthand(const char* key, double& value, Span span) = 0;
  virtual void integer(const char* key, int& value, Span span) = 0;
  virtual void seed(const char* key, std::uint64_t& value) = 0;
  virtual void flag(const char* key, bool& value) = 0;
  /// A text without control characters.
  virtual void text(const char* key, std::string& value) = 0;
  /// `index` counts the names.
  virtual void choice(const char* key, std::size_t& index, const std::vector<std::string>& names) = 0;
  /// A list of as many numbers as there are values.
  virtual void numbers(const char* key, const std::vector<double*>& values, Span span) = 0;
  virtual void integers(const char* key, std::vector<int>& values, Span span) = 0;
  virtual void object(const char* key, const Members& members) = 0;
  /// A list of 1 to 1000 objects. A reader that finds it calls `resize` first, then `element` for each.
  virtual void list(const char* key, std::size_t size, const std::function<void(std::size_t)>& resize,
                    const std::function<void(Fields&, std::size_t)>& element) = 0;
};

/// Most pairs of a scene.
inline constexpr int kMostPairs = 1000;

}  // namespace scene
