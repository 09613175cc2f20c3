#include "data/sql/SortedBy.h"

namespace tarnwell::data {

namespace {

bool isWord(const Token& token, const char* word) {
    return token.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

} // namespace

std::vector<SortedBy> sortedBy(const SqlTokens& tokens) {
    std::vector<SortedBy> list;
    const int order = tokens.find(Keyword::Order);
    if (order < 0)
        return list;
    const int limit = tokens.find(Keyword::Limit);
    const int end = limit >= 0 ? limit : tokens.size();
    int begin = order + 2; // Behind ORDER BY.
    for (int i = begin; i <= end; ++i) {
        if (i < end && tokens.at(i).is(mark::Open))
            i = tokens.at(i).partner;
        if (i < end && !tokens.at(i).is(mark::Comma))
            continue;
        const bool falls = isWord(tokens.at(i - 1), "DESC");
        const int behind = falls || isWord(tokens.at(i - 1), "ASC") ? i - 1 : i;
        if (behind > begin)
            list.push_back({begin, behind, i, falls});
        begin = i + 1;
    }
    return list;
}

} // namespace tarnwell::data
