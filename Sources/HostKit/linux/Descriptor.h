#pragma once

#include <unistd.h>

#include <utility>

namespace tolvane {

/// Owns a file descriptor.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            number_ = std::exchange(other.number_, -1);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    /// Hands the descriptor over to the caller, who closes it.
    int release() { return std::exchange(number_, -1); }
    void reset() {
        if (number_ >= 0) {
            ::close(number_);
            number_ = -1;
        }
    }

  private:
    int number_ = -1;
};

}
