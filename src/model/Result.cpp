#include "model/Result.h"

namespace velmora::model {

std::string errorText(FileErrorCode code)
{
    switch (code) {
    case FileErrorCode::NotFound:
        return "the file does not exist";
    case FileErrorCode::CannotOpen:
        return "the file cannot be opened";
    case FileErrorCode::CannotWrite:
        return "the file cannot be written";
    case FileErrorCode::UnexpectedEnd:
        return "the file ends before the record is complete";
    case FileErrorCode::BadCount:
        return "a count is negative or larger than the rest of the file could hold";
    case FileErrorCode::BadLength:
        return "a text length runs past the end of the file";
    case FileErrorCode::TrailingBytes:
        return "there are bytes after the last record";
    case FileErrorCode::BadValue:
        return "a value is out of range";
    case FileErrorCode::UnsafeName:
        return "the user name cannot name a file in the data folder";
    }
    return "unknown error";
}

std::string FileError::message() const
{
    const std::string name = file.empty() ? std::string("the file") : file;
    std::string text;
    switch (code) {
    case FileErrorCode::UnexpectedEnd:
    case FileErrorCode::BadCount:
    case FileErrorCode::BadLength:
    case FileErrorCode::TrailingBytes:
    case FileErrorCode::BadValue:
        text = name + " is damaged at byte " + std::to_string(offset) + ": " + errorText(code);
        break;
    case FileErrorCode::NotFound:
        text = name + ": " + errorText(code);
        break;
    default:
        text = name + ": " + errorText(code);
        break;
    }
    if (!detail.empty())
        text += " (" + detail + ")";
    return text;
}

std::string keptText(const std::vector<ListKept>& lists)
{
    std::string kept;
    std::vector<std::string> unread;
    for (const ListKept& l : lists) {
        if (!l.inFile) {
            unread.push_back(l.list);
            continue;
        }
        if (!kept.empty())
            kept += ", ";
        kept += std::to_string(l.kept) + " of " + std::to_string(*l.inFile) + " " + l.list;
    }
    std::string text = kept.empty() ? std::string() : kept + " kept";
    if (unread.empty())
        return text;
    std::string names;
    for (std::size_t i = 0; i < unread.size(); ++i) {
        if (i > 0)
            names += i + 1 == unread.size() ? " and " : ", ";
        names += unread[i];
    }
    if (!text.empty())
        text += "; ";
    return text + "the " + names + " could not be read";
}

} // namespace velmora::model
