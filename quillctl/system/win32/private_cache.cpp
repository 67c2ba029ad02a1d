#include "quillctl/system/private_cache.h"

namespace quillctl {

std::string PrivateCacheFolder() {
  return {};
}

SessionMark::SessionMark() = default;
SessionMark::~SessionMark() = default;

bool SessionMark::Exists() {
  return false;
}

void LimitTime(int) {}

}  // namespace quillctl
