#include "client/bundle/ZipFile.h"

#include <windows.h>

#include <zip.h>

// After zip.h, whose macros it needs.
#include <iowin32.h>

#include "client/Failure.h"
#include "client/Text.h"

namespace pimcall::bundle {
namespace {

zip_fileinfo now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    zip_fileinfo info{};
    info.tmz_date = {time.wSecond, time.wMinute, time.wHour, time.wDay, time.wMonth - 1, time.wYear};
    return info;
}

bool add(zipFile zip, const Part& part) {
    const zip_fileinfo info = now();
    return zipOpenNewFileInZip(zip, part.name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                               Z_DEFAULT_COMPRESSION) == ZIP_OK &&
           zipWriteInFileInZip(zip, part.bytes.data(), static_cast<unsigned>(part.bytes.size())) == ZIP_OK &&
           zipCloseFileInZip(zip) == ZIP_OK;
}

}  // namespace

void writeZip(const std::wstring& path, const std::vector<Part>& parts) {
    const std::wstring shown = L"\"" + oneLine(path) + L"\"";
    if (GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES)
        throw Failure(L"There is a file " + shown + L" already; name another one.");
    zlib_filefunc64_def access{};
    fill_win32_filefunc64W(&access);
    const zipFile zip = zipOpen2_64(path.c_str(), APPEND_STATUS_CREATE, nullptr, &access);
    if (!zip)
        throw Failure(L"The file " + shown +
                      L" cannot be made. Is its folder there, and may you write in it?");
    bool isWhole = true;
    for (const Part& part : parts) isWhole = isWhole && add(zip, part);
    isWhole = zipClose(zip, nullptr) == ZIP_OK && isWhole;
    if (isWhole) return;
    DeleteFileW(path.c_str());
    throw Failure(L"The file " + shown + L" could not be written. Is the disk full?");
}

}  // namespace pimcall::bundle
