#include "app/Recovery.h"

#include "app/frmRecovery.h"
#include "characters/frmCharacter.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"
#include "userpicture/frmEditUserPicture.h"

#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace quorrin {

namespace {

/// Ends the writing of a copy that has lost its purpose.
struct Unwanted : std::exception {};

RecoveryCopy::Note noteOf(const Window1& window)
{
    std::error_code none;
    const auto file = window.mySavedFile ? std::filesystem::absolute(window.mySavedFile->Path(), none) : "";
    return {window.mySavedFileName, file.string(), std::time(nullptr)};
}

std::string titleOf(const RecoveryCopy::Note& about)
{
    return about.Name.empty() ? "an unnamed map" : "\"" + about.Name + "\"";
}

std::string timeOf(const RecoveryCopy::Note& about)
{
    return DateAndTime(about.Time);
}

struct Choice {
    MessageDialog::Answer answer;
    std::ptrdiff_t row;
};

Choice askAbout(const std::vector<std::unique_ptr<RecoveryCopy>>& copies)
{
    if (copies.size() > 1) {
        std::vector<std::string> rows;
        for (const auto& copy : copies)
            rows.push_back(titleOf(copy->About()) + ", " + timeOf(copy->About()));
        frmRecovery list(std::move(rows));
        list.ShowModal();
        return {list.Answer, static_cast<std::ptrdiff_t>(list.ListBox1.ListIndex)};
    }
    const auto& about = copies.front()->About();
    MessageDialog question;
    question.Icon = MessageDialog::QuestionIcon;
    question.Message = "Quorrin Map Maker ended before the changes to " + titleOf(about) + " were saved. A copy of "
                       + timeOf(about) + " can be recovered.";
    question.ActionButton = {"Recover", true};
    question.AlternateActionButton = {"Discard", true};
    question.CancelButton = {"Later", true};
    return {question.ShowModal(), 0};
}

} // namespace

Recovery::Recovery(Window1& window) : window_(window)
{
    window_.AfterContentsChanged = [this] {
        if (!window_.isDirty && !window_.putAside)
            forget();
        else if (Changed)
            Changed();
    };
}

Recovery::~Recovery()
{
    window_.AfterContentsChanged = nullptr;
}

/// Nil when all is saved. What stands in an open editor counts as if the editor had been closed.
std::optional<MapSnapshot> Recovery::unsaved() const
{
    if (const auto& aside = window_.putAside)
        return aside->isDirty && !released_ ? std::optional(aside->map) : std::nullopt;
    const auto* drawing = frmEditUserPicture::Current();
    const auto drawn = drawing ? drawing->Drawn() : nullptr;
    const auto* token = frmCharacter::Current();
    const bool isBeingEdited = drawn || (token && token->HasChanged());
    if (!isBeingEdited && (!window_.isDirty || released_))
        return {};
    return window_.Snapshot(drawn ? drawn : window_.UserPicture);
}

bool Recovery::Keep() noexcept
{
    try {
        auto now = unsaved();
        if (!now) {
            forget();
            return false;
        }
        if (kept_ && *kept_ == *now && failed_ != number_)
            return written_ != number_;
        kept_ = std::make_shared<const MapSnapshot>(*std::move(now));
        isUnwanted_ = false;
        work_.Start([this, number = ++number_, note = noteOf(window_), map = kept_] { write(number, note, *map); });
        return true;
    } catch (const std::exception&) {
        failed_ = number_;
        return true;
    }
}

void Recovery::KeepAtOnce() noexcept
{
    Keep();
    work_.Wait();
}

void Recovery::Release()
{
    released_ = true;
    Keep();
}

void Recovery::forget()
{
    if (!std::exchange(kept_, nullptr))
        return;
    isUnwanted_ = true;
    work_.Start([this] {
        if (const auto copy = std::move(copy_))
            copy->Remove();
    });
}

/// Runs in the other thread.
void Recovery::write(unsigned number, const RecoveryCopy::Note& note, const MapSnapshot& map) noexcept
{
    try {
        if (!copy_)
            copy_ = RecoveryCopy::Create();
        copy_->Write(note, [&](const RecoveryCopy::Sink& take) {
            map.Write([&](std::string_view piece) {
                if (isUnwanted_)
                    throw Unwanted();
                take(piece);
            });
        });
        written_ = number;
    } catch (const std::exception&) {
        if (copy_ && !std::filesystem::exists(copy_->Path()))
            copy_ = nullptr;
        failed_ = number;
    }
}

void Recovery::OfferAbandoned()
{
    auto copies = RecoveryCopy::Abandoned();
    while (!copies.empty()) {
        const auto [answer, row] = askAbout(copies);
        if (answer == MessageDialog::Answer::Cancel)
            return;
        const auto chosen = copies.begin() + row;
        if (answer == MessageDialog::Answer::Action) {
            if (!window_.mayGoOn("Save current changes?"))
                return;
            if (recover(*chosen))
                return;
        } else {
            (*chosen)->Remove();
        }
        copies.erase(chosen);
    }
}

/// Opens the map of a copy, which is the copy of this map from now on. False when it cannot be opened.
bool Recovery::recover(std::unique_ptr<RecoveryCopy>& abandoned)
{
    try {
        const auto text = abandoned->Text();
        window_.Initialize();
        if (!window_.ReadMapText(text))
            throw IOException("no map");
        const auto& file = abandoned->About().File;
        window_.SetSavedFileName(file.empty() ? nullptr : New<FolderItem>(file));
        window_.RenderMap(true);
        window_.Canvas1.Invalidate(true);
        forget();
        work_.Wait();
        copy_ = std::move(abandoned);
        kept_ = std::make_shared<const MapSnapshot>(window_.Snapshot(window_.UserPicture));
        written_ = ++number_;
        window_.isDirty = true;
        return true;
    } catch (const std::exception&) {
        abandoned->SetAside();
        MsgBox("The copy of " + titleOf(abandoned->About())
               + " is damaged and cannot be opened. It stays in the folder \"" + abandoned->Path() + "\".");
        return false;
    }
}

} // namespace quorrin
