#include "framework/kxlib_system.h"

#include "framework/value.h"

#include <string>

namespace obk {

namespace {

constexpr char16_t localMachine[] = u"-2147483646";

// Bytes of the single-byte code page whose lower half is ASCII; version numbers and names live there.
Text widened(const std::string& bytes) {
    Text text;
    text.reserve(bytes.size());
    for (const char unit : bytes) text.push_back(static_cast<unsigned char>(unit));
    return text;
}

}  // namespace

Text kxlib_SYSTEM::GetRegistryString(TextView RootKey, TextView SubKey, TextView ValueName,
                                     TextView Default) const {
    // Full access is asked for on purpose: where an ordinary user is refused it, the caller gets its default
    // and with it the classic look. Hosts rely on that pairing.
    constexpr uint32_t fullAccess = 0xF003F;
    constexpr uint32_t bufferSize = 255;
    constexpr uint32_t plainString = 1;
    constexpr uint32_t expandableString = 2;

    const auto rootKey = toLong(Value(Text(RootKey)));
    if (!rootKey) return Text(Default);
    const auto key = registry_.open(*rootKey, SubKey, fullAccess);
    if (!key) return Text(Default);
    std::string buffer(bufferSize, ' ');
    uint32_t size = bufferSize;
    uint32_t type = 0;
    if (!key->query(ValueName, buffer, size, type) || (type != plainString && type != expandableString))
        return Text(Default);
    // A value without even its terminating zero leaves the blanks of the buffer standing.
    if (size != 0) buffer.resize(std::min(size, bufferSize) - 1);
    return widened(buffer);
}

Text GetWindowsVersion(Platform& platform) {
    if (platform.systemVersion) return *platform.systemVersion;
    const kxlib_SYSTEM system(platform.registry());
    Text version = system.GetRegistryString(localMachine, u"SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION",
                                            u"VersionNumber", u"");
    if (version.empty()) {
        version = system.GetRegistryString(localMachine, u"SOFTWARE\\MICROSOFT\\WINDOWS NT\\CURRENTVERSION",
                                           u"CurrentVersion", u"");
    }
    platform.systemVersion = version;
    return version;
}

Look lookOfSystem(Platform& platform) {
    constexpr double newestClassic = 4.99;
    return leadingNumber(GetWindowsVersion(platform)) > newestClassic ? Look::flat : Look::classic;
}

}  // namespace obk
