// The byte form of the template vectors, and the module's meta-type registration.
#include "templatestream.h"

#include "records.h"

#include <QIODevice>
#include <QList>

namespace tarn2::specific::orvo5000::programmer {

namespace {

// Qt's rule for array-like containers: outside a read transaction a status that failed earlier
// does not stop this read, but it is put back afterwards; inside one it stays and fails the read.
class StreamStatusKeeper
{
public:
    explicit StreamStatusKeeper(QDataStream &stream)
        : m_stream(stream)
        , m_oldStatus(stream.status())
    {
        const QIODevice *device = stream.device();
        if (!device || !device->isTransactionStarted())
            stream.resetStatus();
    }
    ~StreamStatusKeeper()
    {
        if (m_oldStatus != QDataStream::Ok) {
            m_stream.resetStatus();
            m_stream.setStatus(m_oldStatus);
        }
    }
    StreamStatusKeeper(const StreamStatusKeeper &) = delete;
    StreamStatusKeeper &operator=(const StreamStatusKeeper &) = delete;

private:
    QDataStream &m_stream;
    const QDataStream::Status m_oldStatus;
};

// Bytes one element takes with this stream's settings; a stream set to single precision writes
// doubles in 4 bytes.
qint64 elementSize(const QDataStream &stream, int ints, int doubles, int bools)
{
    const bool singlePrecision = stream.version() >= QDataStream::Qt_4_6
                                 && stream.floatingPointPrecision() == QDataStream::SinglePrecision;
    return 4 * ints + (singlePrecision ? 4 : 8) * doubles + bools;
}

qint64 listElementSize(const QDataStream &stream)
{
    return elementSize(stream, 8, 9, 1);
}

qint64 delayerElementSize(const QDataStream &stream)
{
    return elementSize(stream, 3, 6, 0);
}

void writeElement(QDataStream &stream, const ListTemplateParam &p)
{
    stream << qint32(p.type) << qint32(p.object) << p.voltage << p.current << p.voltageMin
           << p.voltageMax << p.currentMin << p.currentMax << p.period << p.interval
           << qint32(p.cycles) << p.inverted << p.width << qint32(p.pulseCount)
           << qint32(p.symmetry) << qint32(p.steps) << qint32(p.expRate) << qint32(p.expGroups);
}

void writeElement(QDataStream &stream, const DelayerTemplateParam &p)
{
    stream << qint32(p.type) << qint32(p.pattern) << qint32(p.groups) << p.onTime << p.offTime
           << p.incBaseValue << p.incStep << p.decBaseValue << p.decStep;
}

void readElement(QDataStream &stream, ListTemplateParam &p)
{
    qint32 type = 0;
    qint32 object = 0;
    qint32 cycles = 0;
    qint32 pulseCount = 0;
    qint32 symmetry = 0;
    qint32 steps = 0;
    qint32 expRate = 0;
    qint32 expGroups = 0;
    stream >> type >> object >> p.voltage >> p.current >> p.voltageMin >> p.voltageMax
        >> p.currentMin >> p.currentMax >> p.period >> p.interval >> cycles >> p.inverted >> p.width
        >> pulseCount >> symmetry >> steps >> expRate >> expGroups;
    p.type = static_cast<ListTemplateType>(type);
    p.object = object;
    p.cycles = cycles;
    p.pulseCount = pulseCount;
    p.symmetry = symmetry;
    p.steps = steps;
    p.expRate = expRate;
    p.expGroups = expGroups;
}

void readElement(QDataStream &stream, DelayerTemplateParam &p)
{
    qint32 type = 0;
    qint32 pattern = 0;
    qint32 groups = 0;
    stream >> type >> pattern >> groups >> p.onTime >> p.offTime >> p.incBaseValue >> p.incStep
        >> p.decBaseValue >> p.decStep;
    p.type = static_cast<DelayerTemplateType>(type);
    p.pattern = pattern;
    p.groups = groups;
}

template<typename T> QDataStream &writeVector(QDataStream &stream, const QVector<T> &params)
{
    stream << qint32(params.size());
    for (const T &param : params)
        writeElement(stream, param);
    return stream;
}

template<typename T>
QDataStream &readVector(QDataStream &stream, QVector<T> &params, qint64 bytesPerElement)
{
    const StreamStatusKeeper keeper(stream);
    params.clear();

    qint32 count = 0;
    stream >> count;
    if (stream.status() != QDataStream::Ok || count == 0)
        return stream;
    if (count < 0) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return stream;
    }
    // A damaged count must not make us allocate for elements that are not there. Without a device
    // nothing can be read anyway, so nothing is reserved.
    if (const QIODevice *device = stream.device()) {
        if (count * bytesPerElement > device->bytesAvailable()) {
            stream.setStatus(QDataStream::ReadPastEnd);
            return stream;
        }
        params.reserve(count);
    }

    for (qint32 i = 0; i < count; ++i) {
        T param;
        readElement(stream, param);
        if (stream.status() != QDataStream::Ok) {
            params.clear();
            break;
        }
        params.append(param);
    }
    return stream;
}

} // namespace

QDataStream &operator<<(QDataStream &stream, const QVector<ListTemplateParam> &params)
{
    return writeVector(stream, params);
}

QDataStream &operator>>(QDataStream &stream, QVector<ListTemplateParam> &params)
{
    return readVector(stream, params, listElementSize(stream));
}

QDataStream &operator<<(QDataStream &stream, const QVector<DelayerTemplateParam> &params)
{
    return writeVector(stream, params);
}

QDataStream &operator>>(QDataStream &stream, QVector<DelayerTemplateParam> &params)
{
    return readVector(stream, params, delayerElementSize(stream));
}

void registerProgrammerMetaTypes()
{
    qRegisterMetaType<ProgrammerData>("tarn2::specific::orvo5000::programmer::ProgrammerData");
    qRegisterMetaType<ListData>("tarn2::specific::orvo5000::programmer::ListData");
    qRegisterMetaType<DelayerData>("tarn2::specific::orvo5000::programmer::DelayerData");
    qRegisterMetaType<UploadParam>("tarn2::specific::orvo5000::programmer::UploadParam");
    qRegisterMetaType<ListTemplateParam>(
        "tarn2::specific::orvo5000::programmer::ListTemplateParam");
    qRegisterMetaType<DelayerTemplateParam>(
        "tarn2::specific::orvo5000::programmer::DelayerTemplateParam");
    qRegisterMetaType<QList<ListData>>("QList<programmer::ListData>");
    qRegisterMetaType<QList<DelayerData>>("QList<programmer::DelayerData>");

    // qMetaTypeId registers the vectors under the short names the settings know them by.
    qRegisterMetaTypeStreamOperators<QVector<ListTemplateParam>>(
        QMetaType::typeName(qMetaTypeId<QVector<ListTemplateParam>>()));
    qRegisterMetaTypeStreamOperators<QVector<DelayerTemplateParam>>(
        QMetaType::typeName(qMetaTypeId<QVector<DelayerTemplateParam>>()));
}

} // namespace tarn2::specific::orvo5000::programmer
