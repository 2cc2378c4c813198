#include "store/work/Claim.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <utility>

#include "platform/ProcessIdentity.h"
#include "store/work/ClaimText.h"

namespace polarline {

std::unique_ptr<Claim> Claim::take(const StoredPlace& place, Silence& silence, double timeout_seconds) {
  const std::string text = claimText(process_identity::own());
  std::error_code ignored;
  if (std::filesystem::exists(place.claim(), ignored)) {
    if (!silence.isDead(place)) return nullptr;
    // Two workers may do this at once, and the second may remove the claim of the first: then both judge the set, and
    // write the same.
    std::filesystem::remove(place.claim(), ignored);
  }
  auto file = ExclusiveFile::take(place.claim(), text);
  return file ? std::make_unique<Claim>(std::move(file), timeout_seconds) : nullptr;
}

Claim::Claim(std::unique_ptr<ExclusiveFile> file, double timeout_seconds)
    : file_(std::move(file)), interval_(std::min(timeout_seconds / 6.0, 15.0)), heart_([this] { beat(); }) {}

Claim::~Claim() {
  {
    const std::lock_guard lock(mutex_);
    is_over_ = true;
  }
  wake_.notify_one();
  heart_.join();
}

void Claim::beat() {
  std::unique_lock lock(mutex_);
  while (!wake_.wait_for(lock, interval_, [this] { return is_over_; })) file_->touch();
}

}  // namespace polarline
