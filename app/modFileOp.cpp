// Whole-file operations over the Win32 file API.
#include "modFileOp.h"

#include "FindHandle.h"
#include "KernelHandle.h"
#include "Win32Error.h"

#include <windows.h>

namespace {

KernelHandle OpenOrRaise(const std::string& path, DWORD access, DWORD disposition)
{
    KernelHandle file(CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
    if (!file.Valid()) RaiseLastError();
    return file;
}

bool IsPlainFile(const WIN32_FIND_DATAA& found)
{
    return (found.dwFileAttributes &
            (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) == 0;
}

bool IsListedByDirectorySearch(const WIN32_FIND_DATAA& found)
{
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 || IsPlainFile(found);
}

}  // namespace

bool FileExists(const std::string& path)
{
    WIN32_FIND_DATAA found;
    FindHandle search(path, found);
    return static_cast<bool>(search);
}

bool DirExists(const std::string& path)
{
    if (path.empty()) return false;
    // "C:\Folder\" lists the folder itself: its "." entry answers.
    const std::string pattern = path.back() == '\\' ? path + "*" : path;
    WIN32_FIND_DATAA found;
    FindHandle search(pattern, found);
    if (!search) return false;
    do {
        if (IsListedByDirectorySearch(found)) return true;
    } while (search.Next(found));
    return false;
}

std::string ReadFile(const std::string& path, std::size_t atMost)
{
    KernelHandle file = OpenOrRaise(path, GENERIC_READ, OPEN_EXISTING);
    const DWORD whole = GetFileSize(file.Get(), nullptr);
    if (whole == INVALID_FILE_SIZE) RaiseLastError();
    const DWORD size = whole < atMost ? whole : static_cast<DWORD>(atMost);
    std::string text(size, '\0');
    DWORD done = 0;
    while (done < size) {
        DWORD read = 0;
        if (!::ReadFile(file.Get(), &text[done], size - done, &read, nullptr)) RaiseLastError();
        if (read == 0) break;  // the file shrank while we read it
        done += read;
    }
    text.resize(done);
    return text;
}

bool WriteFile(const std::string& path, const std::string& text)
{
    KernelHandle file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
    if (!file.Valid()) return false;
    DWORD done = 0;
    while (done < text.size()) {
        DWORD written = 0;
        if (!::WriteFile(file.Get(), text.data() + done, static_cast<DWORD>(text.size() - done), &written, nullptr) ||
            written == 0)
            return false;
        done += written;
    }
    return true;
}

std::vector<std::string> FileNames(const std::string& pattern)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    FindHandle search(pattern, found);
    if (!search) return names;
    do {
        if (IsPlainFile(found)) names.emplace_back(found.cFileName);
    } while (search.Next(found));
    return names;
}

void FileCopy(const std::string& source, const std::string& target)
{
    if (!CopyFileA(source.c_str(), target.c_str(), FALSE)) RaiseLastError();
}

void Kill(const std::string& path)
{
    if (!DeleteFileA(path.c_str())) RaiseLastError();
}

void MkDir(const std::string& path)
{
    if (!CreateDirectoryA(path.c_str(), nullptr)) RaiseLastError();
}
