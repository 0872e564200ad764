// Pictures drawn from the record alone are those that the panel shows.
#include "core/picture/drawing_list.h"
#include "core/picture/line_plot.h"
#include "core/picture/space_time_picture.h"
#include "core/picture/space_time_raster.h"
#include "panel_test.h"

namespace {

class HeadlessPicture : public PanelTest {
protected:
    // What a surface shows of a drawing that was made without it.
    static QImage Shown(const Surface& original, const DrawingList& drawing) {
        const PanelScale scale;
        Surface surface(scale, static_cast<double>(original.ScaleWidth()) / original.width());
        surface.setPalette(original.palette());
        surface.resize(original.size());
        surface.Replace([&](DrawingList& list) { list = drawing; });
        return surface.Image().copy();
    }

    void ExpectSamePlots(const std::string& when) {
        const std::pair<LinePlot, Surface*> plots[] = {
            {LinePlot::Density, controls.pctDensityPlot},
            {LinePlot::Pressure, controls.pctPressurePlot},
            {LinePlot::Velocity, controls.pctVelocityPlot}};
        for (const auto& [plot, surface] : plots) {
            DrawingList drawing;
            const ExperimentState copy = state;
            DrawPlot(copy, plot, {surface->ScaleWidth(), surface->ScaleHeight()}, drawing);
            EXPECT_EQ(Shown(*surface, drawing), surface->Image()) << when << static_cast<int>(plot);
        }
    }
};

}  // namespace

TEST_F(HeadlessPicture, ShowsThePlotsOfThePanel) {
    ExpectSamePlots("the default problem with its control points ");
    Begin("cmdTest1");
    panel.Tick(3);
    ExpectSamePlots("a run goes on ");
    ASSERT_TRUE(panel.RunToEnd());
    ExpectSamePlots("a run has ended ");
}

TEST_F(HeadlessPicture, ShowsThePlotsOfASoundWave) {
    Ask("cmdSoundWave", {"0.01"});
    ExpectSamePlots("a sound wave is set up ");
    ASSERT_EQ(state.SoundWaveMode, 1);
    panel.Press("cmdBegin");
    panel.Tick(3);
    ExpectSamePlots("a sound wave runs ");
    DrawingList drawing;
    const AxisLimits limits = DrawPlot(state, LinePlot::Velocity, {6795.0F, 2895.0F}, drawing);
    EXPECT_EQ(limits.Lo, state.RMinusMin);
    EXPECT_EQ(limits.Hi, state.RMinusMax);
}

TEST_F(HeadlessPicture, ShowsTheSpaceTimePictureOfThePanel) {
    Begin("cmdTest1");
    ASSERT_TRUE(panel.RunToEnd());
    Surface& surface = *controls.pctSpaceTime;
    const int width = surface.width();
    const int height = surface.height();
    for (int row = 0; row < controls.lstGrayVariable->count(); ++row) {
        controls.lstGrayVariable->setCurrentRow(row);
        QTest::keyClick(&surface, Qt::Key_Escape);  // paints the chosen variable
        const std::string name = controls.lstGrayVariable->currentItem()->text().toStdString();
        const OffsetArray<float>* stored = StoredVariable(state, name);
        ASSERT_NE(stored, nullptr) << name;
        SpaceTimeRaster raster = MakeSpaceTimeRaster(width, height);
        DrawingList drawing;
        const AxisLimits limits = DrawSpaceTimePicture(StoredTable(state, *stored, state.NStored),
                                                       width, height, raster, drawing);
        EXPECT_LE(limits.Lo, limits.Hi) << name;
        EXPECT_EQ(Shown(surface, drawing), surface.Image()) << name;
    }
    EXPECT_EQ(StoredVariable(state, "density"), nullptr);
}
