#include "look/SharedPalettes.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace tarnwell {

namespace {

/// Colours change only with the desktop's: more than these are left over from earlier ones.
constexpr std::size_t mostPalettes = 64;
constexpr qsizetype mostNames = 1024;

class SharedPalettes {
public:
    const QPalette& find(const QPalette& palette) {
        const auto named = m_byName.constFind(palette.cacheKey());
        if (named != m_byName.constEnd())
            return m_palettes[*named];
        if (m_palettes.size() >= mostPalettes)
            m_palettes.clear();
        if (m_palettes.empty() || m_byName.size() >= mostNames)
            m_byName.clear();
        auto equal = std::ranges::find(m_palettes, palette);
        if (equal == m_palettes.end())
            equal = m_palettes.insert(equal, palette);
        m_byName.insert(palette.cacheKey(), static_cast<std::size_t>(equal - m_palettes.begin()));
        return *equal;
    }

private:
    std::vector<QPalette> m_palettes;
    QHash<qint64, std::size_t> m_byName; ///< Position by a palette's identity, which is never used again.
};

} // namespace

QPalette sharedPalette(const QPalette& palette) {
    static SharedPalettes palettes;
    QPalette shared = palettes.find(palette);
    shared.setCurrentColorGroup(palette.currentColorGroup());
    return shared;
}

} // namespace tarnwell
