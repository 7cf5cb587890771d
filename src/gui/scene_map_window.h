#pragma once

#include <QWidget>
#include <optional>

#include "map/map_presentation.h"
#include "map/scene_map.h"

class QLabel;
class QCloseEvent;

namespace tos {
struct App;
}

namespace tos::gui {

// Draws a scene map: terrain, tile grid, main tile window, models by kind, the
// placements of the selection and 3ds Max's origin. The wheel zooms about the
// pointer, a drag pans, a double click fits the whole map; resting the pointer on
// a model or placement shows its number, value and position.
class SceneMapView : public QWidget {
public:
    explicit SceneMapView(QWidget* parent);

    // Shows a new map; fit also frames it whole.
    void SetMap(const SceneMap* map, bool fit);
    // The tooltip text for a point of the widget, "" where nothing is near.
    QString DescribeAt(QPointF point) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Picture coordinates (right: scene z, down: scene x) to the widget and back.
    QPointF ToScreen(double x, double z) const;
    void Fit();
    // Width of the legend's text column, which the fitted picture keeps clear of.
    int LegendTextWidth() const;
    void PaintTerrain(QPainter& p) const;
    void PaintModels(QPainter& p) const;
    void PaintPlacements(QPainter& p) const;
    void PaintAxesAndLegend(QPainter& p) const;
    void PaintLegendMark(QPainter& p, const LegendEntry& entry, QRectF box) const;

    const SceneMap* map_ = nullptr;
    double scale_ = 1; // pixels per scene unit
    QPointF offset_;   // widget position of picture point (0, 0)
    bool fitted_ = false;
    std::optional<QPointF> dragFrom_;
};

// The non-modal "Scene Map" window. It follows the main form as it changes (the
// selection, the tile choice, a new load) and never changes anything there.
class SceneMapWindow : public QWidget {
public:
    SceneMapWindow(App& app, QWidget* owner);
    ~SceneMapWindow() override;

    const SceneMap& Map() const { return map_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class Stale { None, Placements, All };
    // Many changes come at once (a load adds thousands of rows): note the
    // largest and redraw once, when the event loop is free again.
    void MarkStale(Stale what);
    void Refresh();
    void SyncForm();

    App& app_;
    SceneMapper mapper_;
    SceneMap map_;
    SceneMapView* view_;
    QLabel* status_;
    Stale stale_ = Stale::All;
    bool refreshQueued_ = false;
};

} // namespace tos::gui
