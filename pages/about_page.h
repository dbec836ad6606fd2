// The About page (slot 12): product, version, build and how to reach the maker.
#pragma once

#include <memory>
#include <string>

#include "pages/settings_page.h"

namespace tw {

inline constexpr ControlIdRange kAboutPageIds{4400, 4599};

// __DATE__ ("Nov  2 2026") as "2 November 2026"; other text is kept as it is.
std::u16string FormatBuildDate(const char* compilerDate);

class AboutPage : public SettingsPage {
 public:
  explicit AboutPage(const PageContext& context);
  ~AboutPage() override = default;  // nothing of the record is edited here

  void Show(int showCommand, bool includeTabStrip) override;
  HBRUSH ControlColour(HDC dc, HWND control) override;

 private:
  HWND lastLine_ = nullptr;
};

std::unique_ptr<SettingsPage> MakeAboutPage(const PageContext& context);

}  // namespace tw
