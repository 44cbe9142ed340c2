#pragma once

#include "document/MapSnapshot.h"
#include "toolkit/BackgroundWork.h"
#include "toolkit/RecoveryCopy.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace quorrin {

class Window1;

/// Keeps a copy of what is not saved yet, so that a crash takes no more than the last moments, and offers what earlier
/// crashes have left. A disk that takes no copy is passed over in silence. When to write is the desktop's to say.
class Recovery {
public:
    explicit Recovery(Window1& window);
    /// Leaves the copy where it is.
    ~Recovery();
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    /// Runs when the map has changed; may be empty.
    std::function<void()> Changed;

    /// Brings the copy up to date: it goes when nothing is unsaved. Takes a moment only, writing goes on in another
    /// thread. True when that may still fail and should be tried again later.
    bool Keep() noexcept;
    /// The same, but what is unsaved is on disk, if it can be, when this returns. For an end that nobody chose.
    void KeepAtOnce() noexcept;
    /// The person lets go of the changes to the map, which may still be open for a moment: they are unsaved no more.
    void Release();
    /// The person goes on with a map that was released.
    void Resume() { released_ = false; }

    /// Asks what to do with the copies that crashes have left, and does it.
    void OfferAbandoned();

private:
    std::optional<MapSnapshot> unsaved() const;
    void forget();
    void write(unsigned number, const RecoveryCopy::Note& note, const MapSnapshot& map) noexcept;
    bool recover(std::unique_ptr<RecoveryCopy>& abandoned);

    Window1& window_;
    /// What the copy holds or will hold in a moment; nil for no copy.
    std::shared_ptr<const MapSnapshot> kept_;
    bool released_ = false;
    /// The number of what is kept, and those of the last that the disk took and that it did not take.
    unsigned number_ = 0;
    std::atomic<unsigned> written_ = 0;
    std::atomic<unsigned> failed_ = 0;
    /// Nobody needs what is being written.
    std::atomic<bool> isUnwanted_ = false;
    /// Belongs to the work in the other thread while there is any.
    std::unique_ptr<RecoveryCopy> copy_;
    BackgroundWork work_;
};

} // namespace quorrin
