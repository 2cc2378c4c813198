#include "check/set/Fingerprint.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <new>

#include "platform/FileHandle.h"

namespace polarline {
namespace {

struct FreeContext {
  void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

class Sha256 {
 public:
  Sha256() : context_(EVP_MD_CTX_new()) {
    if (!context_ || EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr) != 1) throw std::bad_alloc();
  }
  void add(const void* bytes, std::size_t count) { EVP_DigestUpdate(context_.get(), bytes, count); }
  std::string digits() {
    static constexpr const char* kDigits = "0123456789abcdef";
    std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
    unsigned int count = 0;
    EVP_DigestFinal_ex(context_.get(), bytes.data(), &count);
    std::string text;
    for (unsigned int k = 0; k < count; ++k) {
      text += kDigits[bytes.at(k) / 16U];
      text += kDigits[bytes.at(k) % 16U];
    }
    return text;
  }

 private:
  std::unique_ptr<EVP_MD_CTX, FreeContext> context_;
};

}  // namespace

std::string sha256OfFile(const std::string& path) {
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  if (!file) return {};
  Sha256 hash;
  std::vector<char> block(std::size_t{1} << 16U);
  for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), file.get())) > 0;) {
    hash.add(block.data(), count);
  }
  return std::ferror(file.get()) != 0 ? std::string() : hash.digits();
}

std::string sha256(const std::string& text) {
  Sha256 hash;
  hash.add(text.data(), text.size());
  return hash.digits();
}

std::string sha256OfPicture(const cv::Mat& picture) {
  const std::string form =
      std::to_string(picture.rows) + " " + std::to_string(picture.cols) + " " + std::to_string(picture.type()) + "\n";
  Sha256 hash;
  hash.add(form.data(), form.size());
  for (int row = 0; row < picture.rows; ++row)
    hash.add(picture.ptr(row), static_cast<std::size_t>(picture.cols) * picture.elemSize());
  return hash.digits();
}

std::string fingerprint(std::vector<SetInput> inputs) {
  std::ranges::sort(inputs, {}, &SetInput::role);
  std::string text;
  for (const SetInput& input : inputs) text += input.role + " " + input.sha256 + "\n";
  return sha256(text);
}

}  // namespace polarline
