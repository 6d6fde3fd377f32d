#ifndef TESTS_SUPPORT_LOCALE_H
#define TESTS_SUPPORT_LOCALE_H

#include <locale>

namespace test {

/// The classic locale, except that `unit` belongs to `classes` and to no other class.
inline std::locale locale_with(wchar_t unit, std::ctype_base::mask classes) {
  class facet : public std::ctype<wchar_t> {
   public:
    facet(wchar_t unit, mask classes) : unit_(unit), classes_(classes) {}

   protected:
    bool do_is(mask asked, wchar_t unit) const override {
      return unit == unit_ ? (asked & classes_) != 0 : std::ctype<wchar_t>::do_is(asked, unit);
    }

   private:
    wchar_t unit_;
    mask classes_;
  };
  return std::locale(std::locale::classic(), new facet(unit, classes));
}

/// Makes a locale the global one until the end of the scope.
class global_locale {
 public:
  explicit global_locale(const std::locale& locale) : before_(std::locale::global(locale)) {}
  global_locale(const global_locale&) = delete;
  global_locale& operator=(const global_locale&) = delete;
  ~global_locale() { std::locale::global(before_); }

 private:
  std::locale before_;
};

}  // namespace test

#endif
