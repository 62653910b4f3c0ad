#include <windows.h>

#include <wincodec.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "connector/Parts.h"
#include "connector/cDataConnector.h"
#include "core/DriverState.h"
#include "dialogs/Controls.h"
#include "dialogs/frmMessageForm.h"
#include "dialogs/frmOutSelFolder.h"
#include "standin/dao/Host.h"
#include "standin/outlook/host/Host.h"
#include "support/mLogError.h"
#include "tests/dialogs/Windows.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/harness/TemporaryFolder.h"

/// Takes a picture of each of the driver's windows in one language:
///   dialog_pictures FOLDER LANGUAGE-INDEX SUFFIX
/// makes FOLDER\folders-SUFFIX.png and its siblings.
namespace {

using namespace zelbar;
using standin::outlook::ItemType;

void check(HRESULT result) {
    if (FAILED(result)) throw std::runtime_error("a picture cannot be written");
}

/// What a window shows, as 32-bit pixels from the top.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<BYTE> bytes;
};

Pixels pixelsOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    Pixels result{place.right - place.left, place.bottom - place.top, {}};
    BITMAPINFO format{};
    format.bmiHeader = {sizeof(BITMAPINFOHEADER), result.width, -result.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC from = GetWindowDC(window);
    const HDC to = CreateCompatibleDC(from);
    const HBITMAP bitmap = CreateDIBSection(from, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(to, bitmap);
    BitBlt(to, 0, 0, result.width, result.height, from, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const BYTE*>(bits);
    result.bytes.assign(first,
                        first + static_cast<size_t>(result.width) * static_cast<size_t>(result.height) * 4);
    SelectObject(to, before);
    DeleteObject(bitmap);
    DeleteDC(to);
    ReleaseDC(window, from);
    return result;
}

void writePng(const std::wstring& path, Pixels pixels) {
    Com<IWICImagingFactory> factory;
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                           reinterpret_cast<void**>(factory.put())));
    Com<IWICStream> stream;
    check(factory->CreateStream(stream.put()));
    check(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE));
    Com<IWICBitmapEncoder> encoder;
    check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()));
    check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache));
    Com<IWICBitmapFrameEncode> frame;
    check(encoder->CreateNewFrame(frame.put(), nullptr));
    check(frame->Initialize(nullptr));
    const auto width = static_cast<UINT>(pixels.width), height = static_cast<UINT>(pixels.height);
    check(frame->SetSize(width, height));
    WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGRA;
    check(frame->SetPixelFormat(&format));
    for (size_t i = 3; i < pixels.bytes.size(); i += 4) pixels.bytes[i] = 0xFF;
    check(frame->WritePixels(height, width * 4, static_cast<UINT>(pixels.bytes.size()), pixels.bytes.data()));
    check(frame->Commit());
    check(encoder->Commit());
}

/// An installation with some folders, as a user of the language would have it.
class Scene {
  public:
    Scene(const std::wstring& folder, const std::wstring& language, const std::wstring& suffix)
        : folder_(folder), suffix_(suffix), outlook_(files_.file(L"mailbox.db")) {
        registry_.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone\\Settings", L"lang", language);
        registry_.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\Popup", L"InitPSTnumber", L"2");
        registry_.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone", L"DataPath", files_.path());
        registry_.useProfile(files_);
        driver().languages.CurrentCharset(driver().languages.GetChartset());
        fillMailbox();
        const auto application = outlook_.application();
        check(RegisterActiveObject(application.Get(), standin::outlook::kApplicationClsid,
                                   ACTIVEOBJECT_STRONG, &running_));
    }
    ~Scene() {
        for (const HWND left : openDialogs()) DestroyWindow(left);
        RevokeActiveObject(running_, nullptr);
        resetDriver();
    }
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    void takeFolders() {
        showFolderSelection(windowParts(driver()));
        HWND window = topmost();
        serveUntil([&] { return IsWindowEnabled(GetDlgItem(window, IDOK)); });
        take(window, L"folders");
        pressForModal(GetDlgItem(window, kControl_CmdSelect), [this](HWND tree) {
            serveMessages();
            SetDlgItemTextW(tree, kControl_Name, L"Zürich & Łódź");
            take(tree, L"tree");
            PostMessageW(tree, WM_COMMAND, IDCANCEL, 0);
        });
        DestroyWindow(window);
        // A store that has gone since: the list says so.
        registry_.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\Popup", L"InitPSTnumber", L"3");
        showFolderSelection(windowParts(driver()));
        window = topmost();
        serveUntil([&] { return IsWindowEnabled(GetDlgItem(window, IDOK)); });
        take(window, L"folders-changed");
        DestroyWindow(window);
    }
    void takeMessage() {
        messageForm(windowParts(driver()))
            .ShowMessage(L"__NO_TITLE__", 0,
                         GetSystemErrorText(ERROR_FILE_NOT_FOUND) + L": C:\\Tools\\dial.exe 0123.");
        take(topmost(), L"message");
        DestroyWindow(topmost());
    }
    /// What the driver traces while it starts and the user chooses folders.
    void takeLog() {
        registry_.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\Popup", L"Developper", L"1");
        const auto connector = makeObject<zelbar::cDataConnector>();
        const HWND log = topmost();
        check(connector->ConfigPIM());
        const HWND folders = topmost();
        serveUntil([&] { return IsWindowEnabled(GetDlgItem(folders, IDOK)); });
        DestroyWindow(folders);
        take(log, L"log");
        DestroyWindow(log);
    }

  private:
    void fillMailbox() {
        auto& mailbox = outlook_.mailbox();
        const auto store = mailbox.defaultStore();
        mailbox.addFolder(mailbox.specialFolder(standin::outlook::SpecialFolder::Contacts).id, L"Kunden",
                          ItemType::Contact);
        const auto suppliers = mailbox.addFolder(store.root, L"Dostawcy – Łódź", ItemType::Contact);
        mailbox.addFolder(suppliers.id,
                          L"Źródła i przedstawicielstwa w całej Europie Środkowej i Wschodniej (archiwum)",
                          ItemType::Contact);
        const auto archive = mailbox.addStore(L"Archive 2003");
        const auto projects = mailbox.addFolder(archive.root, L"Projekte", ItemType::Mail);
        mailbox.addFolder(projects.id, L"Ügyfelek", ItemType::Contact);
    }
    static HWND topmost() {
        const auto windows = openDialogs();
        if (windows.empty()) throw std::runtime_error("a window does not open");
        return windows.front();
    }
    void take(HWND window, const std::wstring& name) const {
        serveMessages();
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
        writePng(folder_ + L"\\" + name + L"-" + suffix_ + L".png", pixelsOf(window));
    }

    std::wstring folder_;
    std::wstring suffix_;
    harness::TemporaryFolder files_;
    harness::RegistrySandbox registry_;
    standin::outlook::Host outlook_;
    standin::dao::Host dao_;
    DWORD running_ = 0;
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 4) return 2;
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    int result = 0;
    try {
        Scene scene(arguments[1], arguments[2], arguments[3]);
        scene.takeFolders();
        scene.takeMessage();
        scene.takeLog();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        result = 1;
    }
    CoUninitialize();
    return result;
}
