#include "common/KeyHash.h"

#include <random>

namespace tarnquill {

namespace {

struct Secrets {
    std::uint64_t seed;
    std::uint64_t factor;
};

const Secrets& secrets() {
    static const auto kSecrets = [] {
        std::random_device device;
        const auto draw = [&] { return (std::uint64_t{device()} << 32) | device(); };
        return Secrets{.seed = draw(), .factor = draw() | 1};
    }();
    return kSecrets;
}

} // namespace

KeyHash::KeyHash() : m_seed(secrets().seed), m_factor(secrets().factor) {}

} // namespace tarnquill
