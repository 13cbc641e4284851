#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tessel8 {

/// The native pieces (line edits, menus, dialogs) that stand over a window. A piece that has ended
/// is still calling when we hear of it, so it goes at the next
/// `sweep`, which must come from outside of all calls of the window.
class NativePieces {
  public:
    /// `open` makes the piece from what it is to call at its end; `ended` then hears of it, once.
    template <typename... Answer, typename Open>
    void add(std::function<void(Answer...)> ended, const Open& open) {
        sweep();
        pieces.push_back(std::make_unique<Piece>());
        Piece* const piece = pieces.back().get();
        piece->native = open([piece, ended = std::move(ended)](Answer... answer) {
            if (!std::exchange(piece->over, true) && ended) {
                ended(answer...);
            }
        });
        piece->over = piece->over || !piece->native;
    }

    void sweep() {
        std::erase_if(pieces, [](const auto& piece) { return piece->over; });
    }
    /// From now on nobody hears of the pieces that stand.
    void silence() {
        for (const auto& piece : pieces) {
            piece->over = true;
        }
    }

  private:
    struct Piece {
        std::shared_ptr<void> native;
        bool over = false;
    };

    std::vector<std::unique_ptr<Piece>> pieces;
};

}  // namespace tessel8
