// Draws every icon of the programmer module as a 64x64 PNG, and optionally a contact sheet that
// shows them at the sizes the dialog really uses.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

#include <cmath>
#include <functional>
#include <vector>

namespace {

// Everything is drawn on a 64-unit grid. Straight strokes are 8 units wide and centred on multiples
// of 4, so that at 16 px (2 px strokes) and at 32 px (4 px strokes) they cover whole pixels and
// stay sharp; only slants and curves are left to antialiasing.
constexpr int canvasSize = 64;

// One accent (the orange of the dialog's separator strips) and one dark neutral grey; the accent
// marks what the icon is about, the grey is the context.
const QColor accent(0xdc, 0x50, 0x00);
const QColor ink(0x4a, 0x4a, 0x4a);

constexpr qreal strokeWidth = 8.0;
// Hairlines (the waveform baseline) are a single pixel at 16 px, centred on a pixel (4k + 2).
constexpr qreal hairWidth = 4.0;

QPen roundPen(const QColor &color, qreal width = strokeWidth)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QPainterPath polyline(const std::vector<QPointF> &points)
{
    QPainterPath path;
    if (points.empty())
        return path;
    path.moveTo(points.front());
    for (std::size_t i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
    return path;
}

// The waveform icons share a box and a grey baseline, so that the eight template types read as
// one family in the type combo box.
constexpr qreal waveLeft = 8;
constexpr qreal waveRight = 56;
constexpr qreal waveTop = 12;
constexpr qreal waveBottom = 44;
constexpr qreal baselineY = 58;

qreal waveY(qreal level)
{
    return waveBottom - level * (waveBottom - waveTop);
}

// Samples a level 0..1 as a function of t in 0..1 across the waveform box.
QPainterPath curve(const std::function<qreal(qreal)> &level)
{
    constexpr int samples = 96;
    std::vector<QPointF> points;
    points.reserve(samples + 1);
    for (int i = 0; i <= samples; ++i) {
        const qreal t = qreal(i) / samples;
        points.emplace_back(waveLeft + t * (waveRight - waveLeft), waveY(level(t)));
    }
    return polyline(points);
}

// Levels 0..1 held between successive x edges; edges.size() == levels.size() + 1.
QPainterPath steps(const std::vector<qreal> &edges, const std::vector<qreal> &levels)
{
    std::vector<QPointF> points;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        points.emplace_back(edges[i], waveY(levels[i]));
        points.emplace_back(edges[i + 1], waveY(levels[i]));
    }
    return polyline(points);
}

void drawWave(QPainter &p, const QPainterPath &wave)
{
    p.setPen(roundPen(ink, hairWidth));
    p.drawLine(QPointF(4, baselineY), QPointF(60, baselineY));
    p.setPen(roundPen(accent));
    p.drawPath(wave);
}

void drawSine(QPainter &p)
{
    drawWave(p, curve([](qreal t) { return 0.5 + 0.5 * std::sin(2 * M_PI * t); }));
}

void drawPulse(QPainter &p)
{
    drawWave(p, steps({4, 12, 24, 40, 52, 60}, {0, 1, 0, 1, 0}));
}

void drawRamp(QPainter &p)
{
    drawWave(
        p,
        polyline({{6, waveY(0)}, {19, waveY(1)}, {32, waveY(0)}, {45, waveY(1)}, {58, waveY(0)}}));
}

// Three levels rather than four: at 16 px each step then rises by twice the stroke width, so the
// steps do not melt into a slope.
void drawStairUp(QPainter &p)
{
    drawWave(p, steps({4, 24, 40, 60}, {0, 0.5, 1}));
}

void drawStairDown(QPainter &p)
{
    drawWave(p, steps({4, 24, 40, 60}, {1, 0.5, 0}));
}

void drawStairUpDown(QPainter &p)
{
    drawWave(p, steps({4, 16, 24, 40, 48, 60}, {0, 0.5, 1, 0.5, 0}));
}

// The time constant is a quarter of the box, so the curve visibly settles before the right edge.
constexpr qreal expRate = 4.0;

void drawExpRise(QPainter &p)
{
    const qreal end = 1.0 - std::exp(-expRate);
    drawWave(p, curve([end](qreal t) { return (1.0 - std::exp(-expRate * t)) / end; }));
}

void drawExpFall(QPainter &p)
{
    const qreal floor = std::exp(-expRate);
    drawWave(p,
             curve([floor](qreal t) { return (std::exp(-expRate * t) - floor) / (1.0 - floor); }));
}

void drawSave(QPainter &p)
{
    // A floppy disk: the body in grey with the shutter cut out, the label in the accent colour.
    QPainterPath body;
    body.moveTo(12, 8);
    body.lineTo(46, 8);
    body.lineTo(56, 18);
    body.lineTo(56, 52);
    body.quadTo(56, 56, 52, 56);
    body.lineTo(12, 56);
    body.quadTo(8, 56, 8, 52);
    body.lineTo(8, 12);
    body.quadTo(8, 8, 12, 8);
    p.setPen(Qt::NoPen);
    p.setBrush(ink);
    p.drawPath(body);

    p.setCompositionMode(QPainter::CompositionMode_Clear);
    p.drawRect(QRectF(16, 12, 28, 12));
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    p.setBrush(ink);
    p.drawRect(QRectF(32, 12, 8, 8));

    p.setBrush(accent);
    p.drawRoundedRect(QRectF(16, 32, 32, 20), 2, 2);
}

void drawOpen(QPainter &p)
{
    // An open folder: the back with its tab in grey, the front flap tilted open in the accent.
    QPainterPath back;
    back.moveTo(4, 14);
    back.quadTo(4, 8, 10, 8);
    back.lineTo(24, 8);
    back.lineTo(30, 16);
    back.lineTo(50, 16);
    back.quadTo(56, 16, 56, 22);
    back.lineTo(56, 28);
    back.lineTo(12, 28);
    back.lineTo(12, 56);
    back.lineTo(4, 56);
    back.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(ink);
    p.drawPath(back);

    QPainterPath front;
    front.moveTo(18, 28);
    front.lineTo(60, 28);
    front.quadTo(63, 28, 62, 31);
    front.lineTo(54, 53);
    front.quadTo(53, 56, 50, 56);
    front.lineTo(4, 56);
    front.lineTo(14, 31);
    front.quadTo(15, 28, 18, 28);
    p.setBrush(accent);
    p.drawPath(front);
}

void drawUpload(QPainter &p)
{
    // An arrow leaving a tray: the sequence goes out to the instrument.
    p.setPen(roundPen(ink));
    p.drawPath(polyline({{8, 36}, {8, 56}, {56, 56}, {56, 36}}));
    p.setPen(roundPen(accent));
    p.drawLine(QPointF(32, 44), QPointF(32, 8));
    p.drawPath(polyline({{18, 22}, {32, 8}, {46, 22}}));
}

// The row icons: table rows as grey bars; the accent marks where the edit happens.
void drawRow(QPainter &p, qreal y, qreal left = 8, qreal right = 56, const QColor &color = ink)
{
    p.setPen(roundPen(color));
    p.drawLine(QPointF(left, y), QPointF(right, y));
}

void drawPlus(QPainter &p, QPointF centre, qreal arm)
{
    p.setPen(roundPen(accent));
    p.drawLine(centre - QPointF(arm, 0), centre + QPointF(arm, 0));
    p.drawLine(centre - QPointF(0, arm), centre + QPointF(0, arm));
}

void drawCross(QPainter &p, QPointF centre, qreal arm)
{
    p.setPen(roundPen(accent));
    p.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    p.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
}

// Append and delete share a layout: two rows, then the row being added or removed with its mark.
void drawAppend(QPainter &p)
{
    drawRow(p, 12);
    drawRow(p, 28);
    drawRow(p, 48, 8, 24, accent);
    drawPlus(p, {48, 48}, 8);
}

void drawInsert(QPainter &p)
{
    drawRow(p, 12);
    drawRow(p, 52);
    drawRow(p, 32, 32, 56, accent);
    QPainterPath arrow;
    arrow.moveTo(6, 22);
    arrow.lineTo(20, 32);
    arrow.lineTo(6, 42);
    arrow.closeSubpath();
    p.setPen(roundPen(accent, hairWidth));
    p.setBrush(accent);
    p.drawPath(arrow);
}

void drawDelete(QPainter &p)
{
    drawRow(p, 12);
    drawRow(p, 28);
    drawRow(p, 48, 8, 24);
    drawCross(p, {46, 46}, 10);
}

void drawDeleteAll(QPainter &p)
{
    drawRow(p, 16, 8, 24);
    drawRow(p, 32, 8, 24);
    drawRow(p, 48, 8, 24);
    drawCross(p, {46, 32}, 14);
}

struct Icon
{
    const char *name;
    void (*draw)(QPainter &);
};

const std::vector<Icon> &icons()
{
    static const std::vector<Icon> all = {
        {"save", drawSave},
        {"open", drawOpen},
        {"upload", drawUpload},
        {"sine2", drawSine},
        {"pulse2", drawPulse},
        {"ramp2", drawRamp},
        {"stairup2", drawStairUp},
        {"stairdown2", drawStairDown},
        {"stairupdown2", drawStairUpDown},
        {"exprise2", drawExpRise},
        {"expfall2", drawExpFall},
        {"append3", drawAppend},
        {"insert32", drawInsert},
        {"delete", drawDelete},
        {"deleteAll", drawDeleteAll},
    };
    return all;
}

QImage render(const Icon &icon)
{
    QImage image(canvasSize, canvasSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    icon.draw(p);
    p.end();
    return image;
}

// The sheet shows each icon at 16, 24, 32 and 64 px, scaled the way QIcon scales a single large
// pixmap, then the 16 and 32 px renderings magnified to judge their pixels.
QImage contactSheet()
{
    const std::vector<int> sizes = {16, 24, 32, 64};
    const std::vector<int> magnified = {16, 32};
    constexpr int cell = 72;
    const int columns = int(sizes.size() + magnified.size());
    QImage sheet(columns * cell, int(icons().size()) * cell, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(QColor(0xef, 0xef, 0xef));
    QPainter p(&sheet);
    int row = 0;
    for (const Icon &icon : icons()) {
        const QImage full = render(icon);
        int column = 0;
        for (int size : sizes) {
            const QImage small
                = full.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            p.drawImage(QPoint(column * cell + (cell - size) / 2, row * cell + (cell - size) / 2),
                        small);
            ++column;
        }
        for (int size : magnified) {
            const QImage small
                = full.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            p.fillRect(QRect(column * cell, row * cell, cell, cell), Qt::white);
            p.drawImage(
                QPoint(column * cell + 4, row * cell + 4),
                small.scaled(canvasSize, canvasSize, Qt::KeepAspectRatio, Qt::FastTransformation));
            ++column;
        }
        ++row;
    }
    p.end();
    return sheet;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Draws the programmer module's icons."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("directory"),
                                 QStringLiteral("Where the PNG files are written."));
    const QCommandLineOption sheetOption(QStringLiteral("sheet"),
                                         QStringLiteral("Also write a contact sheet to <file>."),
                                         QStringLiteral("file"));
    parser.addOption(sheetOption);
    parser.process(app);

    QTextStream err(stderr);
    if (parser.positionalArguments().size() != 1) {
        err << "usage: iconpainter [--sheet <file>] <directory>\n";
        return 2;
    }
    const QDir directory(parser.positionalArguments().constFirst());
    if (!directory.exists() && !QDir().mkpath(directory.path())) {
        err << "cannot create " << directory.path() << '\n';
        return 1;
    }
    for (const Icon &icon : icons()) {
        const QString path
            = directory.filePath(QString::fromLatin1(icon.name) + QStringLiteral(".png"));
        if (!render(icon).save(path, "PNG")) {
            err << "cannot write " << path << '\n';
            return 1;
        }
    }
    if (parser.isSet(sheetOption)) {
        const QString path = parser.value(sheetOption);
        if (!contactSheet().save(path, "PNG")) {
            err << "cannot write " << path << '\n';
            return 1;
        }
    }
    return 0;
}
