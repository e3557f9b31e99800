#include "entry/PathList.h"

std::vector<std::string_view> SplitPathList(std::string_view list)
{
    std::vector<std::string_view> pieces;
    while (!list.empty())
    {
        const std::string_view piece = list.substr(0, list.find(';'));
        if (!piece.empty())
        {
            pieces.push_back(piece);
        }
        list.remove_prefix(piece.size() < list.size() ? piece.size() + 1 : piece.size());
    }
    return pieces;
}
