#include "Text.h"

#include <utf8proc.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace platform {

Character takeCharacter(std::string_view& text)
{
    std::int32_t codePoint = -1;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
        static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    const Character character { length > 0 ? codePoint : -1,
        text.substr(0, length > 0 ? static_cast<std::size_t>(length) : 1) };
    text.remove_prefix(character.bytes.size());
    return character;
}

std::optional<std::size_t> findInvalidUtf8(std::string_view text)
{
    for (auto rest = text; !rest.empty();)
        if (takeCharacter(rest).codePoint < 0)
            return text.size() - rest.size() - 1;
    return std::nullopt;
}

std::string reasonText(int errorNumber)
{
    struct Reason {
        int number;
        const char* text;
    };
    static constexpr std::array reasons {
        Reason { EACCES, "permission is denied" },
        Reason { EBADF, "it is closed" },
        Reason { EDQUOT, "your disk quota is used up" },
        Reason { EFBIG, "it would be too large" },
        Reason { EIO, "the disk reports an error" },
        Reason { EISDIR, "a folder is in its place" },
        Reason { ELOOP, "its symbolic links lead in a circle" },
        Reason { EMFILE, "too many files are open" },
        Reason { ENAMETOOLONG, "the name is too long" },
        Reason { ENFILE, "too many files are open" },
        Reason { ENOENT, "it does not exist" },
        Reason { ENOMEM, "there is not enough memory" },
        Reason { ENOSPC, "the disk is full" },
        Reason { ENOTDIR, "a part of its path is not a folder" },
        Reason { EPERM, "it is not permitted" },
        Reason { EROFS, "the disk is read-only" },
        Reason { ESTALE, "the network disk no longer knows it" },
    };
    for (const auto& reason : reasons)
        if (reason.number == errorNumber)
            return reason.text;
    return std::generic_category().message(errorNumber);
}

} // namespace platform
