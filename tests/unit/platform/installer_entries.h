// InstallerEntries: products in the lists of the Windows installer, entered for a test and taken out after it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tv {

/// At most nine products at a time. The registry is afterwards as it was before, also when the lists weren't there.
class InstallerEntries
{
  public:
    InstallerEntries();
    InstallerEntries(const InstallerEntries&) = delete;
    InstallerEntries& operator=(const InstallerEntries&) = delete;
    ~InstallerEntries();

    /// Enters a product for all users; returns its code, empty when this user may not write the lists.
    std::u16string Add(std::u16string_view name);

  private:
    std::vector<std::wstring> createdKeys; ///< outer ones first
    wchar_t lastDigit = L'0';
};

} // namespace tv
