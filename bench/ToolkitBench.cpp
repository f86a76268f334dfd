// What the screens draw most: sprites next to a bare copy of their rows, and a button's change of
// look.

#include "platform/ProgramFolder.h"
#include "toolkit/Form.h"
#include "toolkit/c_PicButton.h"
#include "toolkit/c_SurfButton.h"

#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstring>

namespace {

using namespace toolkit;

constexpr int kWidth = 400;
constexpr int kHeight = 150;

/// A sprite with holes, its mask, and the ground to draw on.
struct Pictures {
    Canvas ground{800, 600};
    Canvas sprite{kWidth, kHeight};
    Canvas mask{kWidth, kHeight};

    Pictures() {
        ground.Fill(QRect(0, 0, 800, 600), Rgb(20, 30, 90));
        sprite.Fill(QRect(20, 20, kWidth - 40, kHeight - 40), Rgb(200, 100, 50));
        mask.Fill(QRect(0, 0, kWidth, kHeight), kWhite);
        mask.Fill(QRect(20, 20, kWidth - 40, kHeight - 40), kBlack);
    }
};

void CopyOfTheRows(benchmark::State& state) {
    Pictures pictures;
    const QImage& from = pictures.sprite.Image();
    QImage to = pictures.ground.Image().copy();
    for (auto _ : state) {
        for (int row = 0; row < kHeight; ++row)
            std::memcpy(to.scanLine(100 + row) + 200 * sizeof(QRgb), from.constScanLine(row),
                        kWidth * sizeof(QRgb));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyOfTheRows);

void Copy(benchmark::State& state) {
    Pictures pictures;
    for (auto _ : state) {
        BitBlt(&pictures.ground, 200, 100, kWidth, kHeight, &pictures.sprite, 0, 0,
               RasterOp::SrcCopy);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Copy);

void MaskedSprite(benchmark::State& state) {
    Pictures pictures;
    for (auto _ : state) {
        DrawMasked(&pictures.ground, 200, 100, kWidth, kHeight, &pictures.mask, &pictures.sprite, 0,
                   0);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MaskedSprite);

void MakeMask(benchmark::State& state) {
    c_Surface surfaces;
    surfaces.CreateSurface(kWidth, kHeight, QString());
    for (auto _ : state) {
        surfaces.CreateMask(0, kBlack, kBlack, kWhite);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MakeMask);

/// A button of the size of the menu's choices.
void SkinnedButtonChangesItsLook(benchmark::State& state) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("Images"));
    QImage skin(kWidth, 3 * 88, QImage::Format_RGB888);
    skin.fill(QColor(50, 60, 200));
    skin.save(folder.filePath(QStringLiteral("Images/Skin.bmp")), "BMP");
    platform::SetProgramFolder(folder.path().toStdString());
    Form form(QStringLiteral("f_Bench"));
    PictureBox box(&form, QStringLiteral("pBench"), QSize(1, 1));
    c_SurfButton button;
    button.Create(&box, QStringLiteral("Images\\Skin.bmp"), QStringLiteral("Several players"));
    platform::SetProgramFolder({});
    for (auto _ : state) {
        button.Refresh(c_SurfButton::Hover);
        button.Refresh(c_SurfButton::Normal);
    }
    state.SetItemsProcessed(2 * state.iterations());
}
BENCHMARK(SkinnedButtonChangesItsLook);

void PlainButtonChangesItsLook(benchmark::State& state) {
    Form form(QStringLiteral("f_Bench"));
    PictureBox box(&form, QStringLiteral("pBench"), QSize(kWidth, 50));
    c_PicButton button;
    button.Create(&box, QStringLiteral("Normal Play"));
    for (auto _ : state)
        button.SetColors(1, true);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(PlainButtonChangesItsLook);

} // namespace
