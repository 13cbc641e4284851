#include "resources/paint/Painters.h"

#include "resources/paint/Families.h"

namespace tessel8::paint {

namespace {

struct Row {
    int32_t first, last;  // numbers of the strips
    Painter painter;
};

const Row kRows[] = {
    {999, 999, nullptr},
};

}  // namespace

Painter painterOf(int32_t number) {
    for (const Row& row : kRows) {
        if (number >= row.first && number <= row.last) {
            return row.painter;
        }
    }
    return nullptr;
}

Picture paintStrip(const Strip& strip, const Picture& background) {
    const Painter painter = painterOf(strip.number);
    const Box box = strip.firstBox();
    Picture ground =
        strip.places.empty() ? Picture(strip.width, strip.height) : background.crop(box);
    Picture whole(strip.width, strip.height * strip.images);
    for (int32_t index = 0; index < strip.images; ++index) {
        Picture image = ground;
        if (painter != nullptr) {
            const Canvas canvas(box);
            painter(canvas, {strip, index, box});
            canvas.over(image);
        }
        whole.put(image, 0, strip.height * index);
    }
    return whole;
}

}  // namespace tessel8::paint
