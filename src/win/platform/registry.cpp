#include "win/platform/registry.h"

#include <vector>

namespace tos::win {

namespace {

// Closes the key on every road once it was opened.
class OpenKey {
public:
    OpenKey() = default;
    ~OpenKey()
    {
        if (key_ != nullptr)
            RegCloseKey(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    HKEY* out() { return &key_; }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

} // namespace

std::string GetRegStr(const std::string& key, const std::string& valueName, HKEY root)
{
    OpenKey open;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_QUERY_VALUE, open.out()) != ERROR_SUCCESS)
        return "";
    DWORD size = 0;
    if (RegQueryValueExA(open.get(), valueName.c_str(), nullptr, nullptr, nullptr, &size) !=
        ERROR_SUCCESS)
        return "";
    if (size == 0)
        return "";
    // The stored size counts the terminating zero, so the last byte is dropped; the
    // value's type is not looked at.
    std::vector<char> bytes(size, '\0');
    if (RegQueryValueExA(open.get(), valueName.c_str(), nullptr, nullptr,
                         reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS)
        return "";
    return std::string(bytes.data(), bytes.size() - 1);
}

void SetRegStr(const std::string& valueName, const std::string& value, const std::string& key,
               HKEY root)
{
    if (key.empty())
        return;
    OpenKey open;
    DWORD disposition = 0;
    if (RegCreateKeyExA(root, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, open.out(),
                        &disposition) != ERROR_SUCCESS)
        return;
    RegSetValueExA(open.get(), valueName.c_str(), 0, REG_SZ,
                   reinterpret_cast<const BYTE*>(value.c_str()),
                   static_cast<DWORD>(value.size() + 1));
}

} // namespace tos::win
