#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tolvane {

/// The order in which people expect names: that of their language, numbers by their value ("2"
/// before "10"), case ignored. Bytes that are no UTF-8 take part as U+FFFD. Names that compare
/// equal need not be the same, so sorts with it are stable. Costs as much to make as a few hundred
/// comparisons; not to be shared between threads.
class Collation {
  public:
    /// The order of the user: of LC_ALL, LC_COLLATE and LANG the first that is set and not empty.
    Collation();
    /// The order of a locale ("de_DE.UTF-8"); that common to all where there is none of its own, as
    /// for "C".
    explicit Collation(std::string_view locale);
    ~Collation();
    Collation(Collation&&) noexcept;
    Collation& operator=(Collation&&) noexcept;

    /// Negative, zero or positive, as `a` comes before `b`, with it or after it.
    int compare(std::string_view a, std::string_view b) const;
    /// Bytes that compare as `name` does, for lists worth a key for each name. Keys of different
    /// locales do not compare.
    std::string sortKey(std::string_view name) const;

  private:
    struct Order;

    std::unique_ptr<Order> order_;
};

}
