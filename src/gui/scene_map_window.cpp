#include "gui/scene_map_window.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "forms/app.h"
#include "gui/cp1252.h"
#include "map/map_presentation.h"

namespace tos::gui {

namespace {

constexpr double kPickPixels = 6;

QColor Colour(std::uint32_t rgb, double opacity = 1)
{
    QColor colour(QRgb(rgb & 0xFFFFFF));
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

QPen PlacementPen(LegendMark mark)
{
    if (mark == LegendMark::First)
        return QPen(Colour(map_colour::kFirst), 2.5);
    if (mark == LegendMark::Folded)
        return QPen(Colour(map_colour::kFolded), 1.5, Qt::DashLine);
    return QPen(Colour(map_colour::kCopy), 1.5);
}

QPen FoldTilePen()
{
    return QPen(Colour(map_colour::kFolded), 1.5, Qt::DashLine);
}

void PaintMainTile(QPainter& p, const QRectF& window)
{
    p.fillRect(window, Colour(map_colour::kMainTile, kMainTileOpacity));
    p.setPen(QPen(Colour(map_colour::kMainTileEdge), 2));
    p.drawRect(window);
}

} // namespace

SceneMapView::SceneMapView(QWidget* parent) : QWidget(parent)
{
    setObjectName("sceneMapView");
    setMouseTracking(true);
    setMinimumSize(320, 240);
    setAutoFillBackground(true);
    setPalette(QPalette(Qt::white));
}

void SceneMapView::SetMap(const SceneMap* map, bool fit)
{
    map_ = map;
    if (fit || !fitted_)
        Fit();
    update();
}

QPointF SceneMapView::ToScreen(double x, double z) const
{
    return offset_ + QPointF(z * scale_, x * scale_);
}

void SceneMapView::Fit()
{
    if (!map_ || width() <= 0 || height() <= 0)
        return;
    const PictureBounds b = BoundsOf(*map_);
    const double w = std::max(b.right - b.left, 1.0);
    const double h = std::max(b.bottom - b.top, 1.0);
    // The picture fits between the caption line on top, the scale bar below and the
    // legend on the right, so none of them covers a model or a placement.
    const double margin = 24;
    const double right = LegendTextWidth() + 28;
    scale_ = std::min((width() - margin - right) / w, (height() - 2 * margin) / h);
    if (!(scale_ > 0))
        scale_ = 1;
    offset_ = QPointF(margin + (width() - margin - right - w * scale_) / 2 - b.left * scale_,
                      (height() - h * scale_) / 2 - b.top * scale_);
    fitted_ = true;
}

void SceneMapView::resizeEvent(QResizeEvent*)
{
    Fit();
}

void SceneMapView::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    if (!map_)
        return;
    p.setRenderHint(QPainter::Antialiasing, false);
    PaintTerrain(p);
    PaintModels(p);
    p.setRenderHint(QPainter::Antialiasing, true);
    PaintPlacements(p);
    PaintAxesAndLegend(p);
}

void SceneMapView::PaintTerrain(QPainter& p) const
{
    const double side = map_->terrainSide;
    if (side > 0) {
        const QRectF terrain(ToScreen(0, 0), ToScreen(side, side));
        p.fillRect(terrain, Colour(map_colour::kTerrain));
        p.setPen(Colour(map_colour::kGrid));
        for (int i = 1; i < map_->tiles; ++i) {
            const double at = side * i / map_->tiles;
            p.drawLine(ToScreen(0, at), ToScreen(side, at));
            p.drawLine(ToScreen(at, 0), ToScreen(at, side));
        }
        p.setPen(Colour(map_colour::kTerrainEdge));
        p.drawRect(terrain);
    }
    if (!map_->mainTile && map_->tile > 0) {
        p.setPen(FoldTilePen());
        p.drawRect(QRectF(ToScreen(0, 0), ToScreen(map_->tile, map_->tile)));
    }
    if (map_->windowEnd > map_->windowStart) {
        const QRectF window(ToScreen(map_->windowStart, map_->windowStart),
                            ToScreen(map_->windowEnd, map_->windowEnd));
        PaintMainTile(p, window);
    }
}

void SceneMapView::PaintModels(QPainter& p) const
{
    const QRectF visible = QRectF(rect()).adjusted(-3, -3, 3, 3);
    for (const MapModel& m : map_->models) {
        const QPointF at = ToScreen(m.x, m.z);
        if (!visible.contains(at))
            continue;
        p.fillRect(QRectF(at.x() - 2.5, at.y() - 2.5, 5, 5),
                   Colour(KindColour(m.kind), m.taken ? 1 : kFaintOpacity));
    }
}

void SceneMapView::PaintPlacements(QPainter& p) const
{
    auto marker = [&](QPointF at, const MapPlacement& pl, const QPen& pen) {
        p.setPen(pen);
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(at, 5, 5);
        const double norm = std::hypot(pl.lookX, pl.lookY);
        if (norm > 0)
            p.drawLine(at, at + QPointF(pl.lookX / norm * 12, -pl.lookY / norm * 12));
    };
    const QPen copy = PlacementPen(LegendMark::Copy);
    const QPen first = PlacementPen(LegendMark::First);
    const QPen folded = PlacementPen(LegendMark::Folded);
    for (const MapPlacement& pl : map_->placements) {
        const QPointF at = ToScreen(pl.at.x, pl.at.z);
        if (pl.folded) {
            const QPointF to = ToScreen(pl.folded->x, pl.folded->z);
            p.setPen(folded);
            p.drawLine(at, to);
            marker(to, pl, folded);
        }
        marker(at, pl, pl.first ? first : copy);
    }
}

int SceneMapView::LegendTextWidth() const
{
    const QFontMetrics metrics(font());
    int textWidth = 0;
    for (const LegendEntry& entry : LegendOf(*map_))
        textWidth = std::max(textWidth, metrics.horizontalAdvance(FromCp1252(entry.caption)));
    return textWidth + 20;
}

void SceneMapView::PaintLegendMark(QPainter& p, const LegendEntry& entry, QRectF box) const
{
    const QPointF centre = box.center();
    switch (entry.mark) {
    case LegendMark::Model:
    case LegendMark::FaintModel:
        p.fillRect(
            QRectF(centre.x() - 4, centre.y() - 4, 8, 8),
            Colour(KindColour(entry.kind), entry.mark == LegendMark::Model ? 1 : kFaintOpacity));
        return;
    case LegendMark::Copy:
    case LegendMark::First:
    case LegendMark::Folded:
        p.setPen(PlacementPen(entry.mark));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(centre, 5, 5);
        return;
    case LegendMark::MainTile:
        PaintMainTile(p, box.adjusted(1, 1, -1, -1));
        return;
    case LegendMark::FoldTile:
        p.setPen(FoldTilePen());
        p.drawRect(box.adjusted(1, 1, -1, -1));
        return;
    }
}

void SceneMapView::PaintAxesAndLegend(QPainter& p) const
{
    // 3ds Max's origin, x along scene z, y against scene x.
    const QPointF origin = ToScreen(map_->centre, map_->centre);
    p.setPen(QPen(Colour(map_colour::kAxis), 1.5));
    p.drawEllipse(origin, 4, 4);
    p.drawLine(origin, origin + QPointF(40, 0));
    p.drawLine(origin, origin + QPointF(0, -40));
    p.drawText(origin + QPointF(44, 4), "3ds Max x");
    p.drawText(origin + QPointF(-20, -46), "3ds Max y");
    p.drawText(QPointF(8, 16), QString("scene z \u2192   scene x \u2193"));

    // Legend and scale bar in the corners, in pixels.
    const QFontMetrics metrics(font());
    const int line = metrics.height() + 2;
    const std::vector<LegendEntry> legend = LegendOf(*map_);
    const int textWidth = LegendTextWidth();
    const QRect box(width() - textWidth - 16, 4, textWidth + 12,
                    line * static_cast<int>(legend.size()) + 8);
    p.fillRect(box, QColor(255, 255, 255, 220));
    p.setPen(Qt::gray);
    p.drawRect(box);
    int y = box.top() + 4;
    for (const LegendEntry& entry : legend) {
        PaintLegendMark(p, entry, QRectF(box.left() + 4, y + line / 2 - 6, 12, 12));
        p.setPen(Qt::black);
        p.drawText(QRect(box.left() + 20, y, textWidth, line), Qt::AlignVCenter,
                   FromCp1252(entry.caption));
        y += line;
    }

    const double units = ScaleBarLength(150 / scale_);
    const double length = units * scale_;
    const QPointF bar(10, height() - 12);
    p.drawLine(bar, bar + QPointF(length, 0));
    p.drawLine(bar, bar + QPointF(0, -5));
    p.drawLine(bar + QPointF(length, 0), bar + QPointF(length, -5));
    p.drawText(bar + QPointF(length + 6, 0),
               QString::fromStdString(MapNumber(units) + " scene units"));
}

QString SceneMapView::DescribeAt(QPointF point) const
{
    if (!map_)
        return {};
    double best = kPickPixels * kPickPixels;
    std::string text;
    auto consider = [&](double x, double z, auto describe) {
        const QPointF d = ToScreen(x, z) - point;
        const double dist = d.x() * d.x() + d.y() * d.y();
        if (dist <= best) {
            best = dist;
            text = describe();
        }
    };
    for (const MapModel& m : map_->models)
        consider(m.x, m.z, [&] { return DescribeModel(*map_, m); });
    for (std::size_t i = 0; i < map_->placements.size(); ++i) {
        const MapPlacement& pl = map_->placements[i];
        consider(pl.at.x, pl.at.z, [&] { return DescribePlacement(*map_, i, false); });
        if (pl.folded)
            consider(pl.folded->x, pl.folded->z, [&] { return DescribePlacement(*map_, i, true); });
    }
    return FromCp1252(text);
}

bool SceneMapView::event(QEvent* e)
{
    if (e->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(e);
        const QString text = DescribeAt(help->pos());
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), text, this);
        return true;
    }
    return QWidget::event(e);
}

void SceneMapView::wheelEvent(QWheelEvent* event)
{
    const double factor = std::pow(1.0015, event->angleDelta().y());
    const QPointF at = event->position();
    offset_ = at - (at - offset_) * factor;
    scale_ *= factor;
    update();
}

void SceneMapView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        dragFrom_ = event->position();
}

void SceneMapView::mouseMoveEvent(QMouseEvent* event)
{
    if (!dragFrom_)
        return;
    offset_ += event->position() - *dragFrom_;
    dragFrom_ = event->position();
    update();
}

void SceneMapView::mouseReleaseEvent(QMouseEvent*)
{
    dragFrom_.reset();
}

void SceneMapView::mouseDoubleClickEvent(QMouseEvent*)
{
    Fit();
    update();
}

SceneMapWindow::SceneMapWindow(App& app, QWidget* owner)
    : QWidget(owner, Qt::Window), app_(app), mapper_(app)
{
    setObjectName("frmSceneMap");
    setWindowTitle(FromCp1252(app.sceneMap.caption));
    resize(760, 620);
    view_ = new SceneMapView(this);
    status_ = new QLabel(this);
    status_->setObjectName("lblSceneMapStatus");
    status_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(view_, 1);
    layout->addWidget(status_);

    QPointer<SceneMapWindow> self(this);
    auto on = [self](Stale what) {
        return [self, what] {
            if (self)
                self->MarkStale(what);
        };
    };
    MainForm& f = app.main;
    for (Control* c :
         {static_cast<Control*>(&f.comboSelectObject), static_cast<Control*>(&f.chkMainTile),
          static_cast<Control*>(&f.txtGridRes), static_cast<Control*>(&f.txtNumberOfTiles)})
        c->view.Subscribe(on(Stale::Placements));
    for (ListBox* list : {&f.lstSCNdata2, &f.lstBillboards, &f.lstBales, &f.lstTripleBales,
                          &f.lst55GalDrums_TrashCans})
        list->view.Subscribe(on(Stale::All));
    app.sceneMap.formView.Subscribe([self] {
        if (self)
            self->SyncForm();
    });
    SyncForm();
}

SceneMapWindow::~SceneMapWindow() = default;

void SceneMapWindow::MarkStale(Stale what)
{
    stale_ = std::max(stale_, what);
    if (refreshQueued_ || !isVisible())
        return;
    refreshQueued_ = true;
    QTimer::singleShot(0, this, [this] { Refresh(); });
}

void SceneMapWindow::Refresh()
{
    refreshQueued_ = false;
    if (stale_ == Stale::None)
        return;
    const bool all = stale_ == Stale::All;
    if (all)
        mapper_.ReadModels(map_);
    mapper_.PlaceSelection(map_);
    stale_ = Stale::None;
    view_->SetMap(&map_, all);

    QString text = FromCp1252(StatusLine(map_));
    for (const std::string& note : map_.notes)
        text += "\n" + FromCp1252(note);
    status_->setText(text);
}

void SceneMapWindow::SyncForm()
{
    if (app_.sceneMap.visible) {
        show();
        raise();
        activateWindow();
    } else if (isVisible()) {
        hide();
    }
}

void SceneMapWindow::showEvent(QShowEvent*)
{
    // Changes while hidden were only noted; the window opens on the present map.
    Refresh();
}

void SceneMapWindow::closeEvent(QCloseEvent* event)
{
    // The model decides; closing only takes the window off the screen.
    event->ignore();
    app_.sceneMap.visible = false;
    app_.sceneMap.formView.Notify();
}

} // namespace tos::gui
