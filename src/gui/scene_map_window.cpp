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

namespace tos::gui {

namespace {

constexpr double kPickPixels = 6;

QColor KindColor(ModelKind kind)
{
    switch (kind) {
    case ModelKind::Object:
        return QColor(0x2b, 0x6c, 0xb0);
    case ModelKind::Billboard:
        return QColor(0xd5, 0x3f, 0x8c);
    case ModelKind::Bale:
        return QColor(0xd6, 0x9e, 0x2e);
    case ModelKind::TripleBale:
        return QColor(0x9c, 0x42, 0x21);
    case ModelKind::Drum:
        return QColor(0x2f, 0x85, 0x5a);
    case ModelKind::Other:
        break;
    }
    return QColor(0x71, 0x80, 0x96);
}

QString Coordinates(double x, double y, double z)
{
    return QString("%1, %2, %3").arg(x).arg(y).arg(z);
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
        p.fillRect(terrain, QColor(0xee, 0xf3, 0xe6));
        p.setPen(QColor(0xb4, 0xc2, 0xa5));
        for (int i = 1; i < map_->tiles; ++i) {
            const double at = side * i / map_->tiles;
            p.drawLine(ToScreen(0, at), ToScreen(side, at));
            p.drawLine(ToScreen(at, 0), ToScreen(at, side));
        }
        p.setPen(QColor(0x6b, 0x7d, 0x5c));
        p.drawRect(terrain);
    }
    if (!map_->mainTile && map_->tile > 0) {
        p.setPen(QPen(QColor(0x80, 0x5a, 0xd5), 1.5, Qt::DashLine));
        p.drawRect(QRectF(ToScreen(0, 0), ToScreen(map_->tile, map_->tile)));
    }
    if (map_->windowEnd > map_->windowStart) {
        const QRectF window(ToScreen(map_->windowStart, map_->windowStart),
                            ToScreen(map_->windowEnd, map_->windowEnd));
        p.fillRect(window, QColor(0xff, 0xe9, 0xa8, 115));
        p.setPen(QPen(QColor(0xc2, 0x7c, 0x00), 2));
        p.drawRect(window);
    }
}

void SceneMapView::PaintModels(QPainter& p) const
{
    const QRectF visible = QRectF(rect()).adjusted(-3, -3, 3, 3);
    for (const MapModel& m : map_->models) {
        const QPointF at = ToScreen(m.x, m.z);
        if (!visible.contains(at))
            continue;
        QColor colour = KindColor(m.kind);
        if (!m.taken)
            colour.setAlpha(90);
        p.fillRect(QRectF(at.x() - 2.5, at.y() - 2.5, 5, 5), colour);
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
    const QPen copy(QColor(0xe5, 0x3e, 0x3e), 1.5);
    const QPen first(Qt::black, 2.5);
    QPen folded(QColor(0x80, 0x5a, 0xd5), 1.5, Qt::DashLine);
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

namespace {
constexpr ModelKind kLegendKinds[] = {ModelKind::Object, ModelKind::Billboard,
                                      ModelKind::Bale,   ModelKind::TripleBale,
                                      ModelKind::Drum,   ModelKind::Other};
constexpr const char* kFaintCaption = "faint: left out by the load";
} // namespace

int SceneMapView::LegendTextWidth() const
{
    const QFontMetrics metrics(font());
    int textWidth = metrics.horizontalAdvance(kFaintCaption);
    for (const ModelKind kind : kLegendKinds)
        textWidth = std::max(textWidth, metrics.horizontalAdvance(KindCaption(kind)) + 14);
    return textWidth;
}

void SceneMapView::PaintAxesAndLegend(QPainter& p) const
{
    // 3ds Max's origin, x along scene z, y against scene x.
    const QPointF origin = ToScreen(map_->centre, map_->centre);
    p.setPen(QPen(Qt::black, 1.5));
    p.drawEllipse(origin, 4, 4);
    p.drawLine(origin, origin + QPointF(40, 0));
    p.drawLine(origin, origin + QPointF(0, -40));
    p.drawText(origin + QPointF(44, 4), "3ds Max x");
    p.drawText(origin + QPointF(-20, -46), "3ds Max y");
    p.drawText(QPointF(8, 16), QString("scene z \u2192   scene x \u2193"));

    // Legend and scale bar in the corners, in pixels.
    const QFontMetrics metrics(font());
    const int line = metrics.height() + 2;
    const QString faint = kFaintCaption;
    const int textWidth = LegendTextWidth();
    const QRect box(width() - textWidth - 16, 4, textWidth + 12, line * 7 + 8);
    p.fillRect(box, QColor(255, 255, 255, 220));
    p.setPen(Qt::gray);
    p.drawRect(box);
    int y = box.top() + 4;
    p.setPen(Qt::black);
    for (const ModelKind kind : kLegendKinds) {
        p.fillRect(QRectF(box.left() + 6, y + line / 2 - 4, 8, 8), KindColor(kind));
        p.drawText(QRect(box.left() + 20, y, textWidth, line), Qt::AlignVCenter, KindCaption(kind));
        y += line;
    }
    p.drawText(QRect(box.left() + 6, y, textWidth, line), Qt::AlignVCenter, faint);

    const double units = ScaleBarLength(150 / scale_);
    const double length = units * scale_;
    const QPointF bar(10, height() - 12);
    p.drawLine(bar, bar + QPointF(length, 0));
    p.drawLine(bar, bar + QPointF(0, -5));
    p.drawLine(bar + QPointF(length, 0), bar + QPointF(length, -5));
    p.drawText(bar + QPointF(length + 6, 0), QString("%1 scene units").arg(units));
}

QString SceneMapView::DescribeAt(QPointF point) const
{
    if (!map_)
        return {};
    double best = kPickPixels * kPickPixels;
    QString text;
    auto consider = [&](double x, double z, auto describe) {
        const QPointF d = ToScreen(x, z) - point;
        const double dist = d.x() * d.x() + d.y() * d.y();
        if (dist <= best) {
            best = dist;
            text = describe();
        }
    };
    auto modelText = [this](std::int32_t number) {
        const auto it =
            std::lower_bound(map_->models.begin(), map_->models.end(), number,
                             [](const MapModel& m, std::int32_t n) { return m.number < n; });
        if (it == map_->models.end() || it->number != number)
            return QString("Model %1").arg(number);
        return QString("Model %1\n%2\nPosition %3")
            .arg(number)
            .arg(FromCp1252(it->value))
            .arg(Coordinates(it->x, it->y, it->z));
    };
    for (const MapModel& m : map_->models)
        consider(m.x, m.z, [&] {
            return modelText(m.number) + (m.taken ? "" : "\nleft out of the lists by the load");
        });
    const auto count = static_cast<int>(map_->placements.size());
    for (int i = 0; i < count; ++i) {
        const MapPlacement& pl = map_->placements[static_cast<std::size_t>(i)];
        const QString order = pl.first ? QString("first object, merged from the .max file")
                                       : QString("copy %1 of %2").arg(i).arg(count - 1);
        const QString stands =
            QString("\nin 3ds Max at %1, %2 (before the object scale)").arg(pl.maxX).arg(pl.maxY);
        consider(pl.at.x, pl.at.z, [&] { return modelText(pl.number) + "\n" + order + stands; });
        if (pl.folded)
            consider(pl.folded->x, pl.folded->z, [&] {
                return modelText(pl.number) + "\n" + order +
                       QString("\nfolded to %1, %2").arg(pl.folded->x).arg(pl.folded->z) + stands;
            });
    }
    return text;
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

    QString text = map_.selection.empty()
                       ? QString("No row selected")
                       : QString("%1: %2")
                             .arg(FromCp1252(map_.selection))
                             .arg(QString::fromStdString(PlacementCount(map_.placements.size())));
    text += map_.mainTile ? " on the main tile" : ", perimeter tiles folded onto one tile";
    text += QString(" \u2014 %1 models").arg(map_.models.size());
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
