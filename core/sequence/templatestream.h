// The byte form of the template vectors in the settings, and the module's meta-type registration.
#pragma once

#include "templateparam.h"

#include <QDataStream>

namespace tarn2::specific::orvo5000::programmer {

// A vector is a 32-bit element count followed by the elements in index order, each field in
// declaration order with the stream's own settings: ints as qint32, bools as one byte, doubles as
// 8 bytes (105 bytes per List template, 60 per Delayer template). The form is what earlier runs
// left in users' settings, so it never changes.
//
// Loading clears the vector first and leaves it empty when anything goes wrong: a stream cut
// short, a negative count, or a count that claims more elements than the device still holds,
// which is refused before anything is allocated for it. A failure leaves the stream's status set;
// inside a read transaction a status that had already failed also makes the read fail, so the
// caller can roll back.
TARN2_SPECIFIC_EXPORT QDataStream &operator<<(QDataStream &stream,
                                              const QVector<ListTemplateParam> &params);
TARN2_SPECIFIC_EXPORT QDataStream &operator>>(QDataStream &stream,
                                              QVector<ListTemplateParam> &params);
TARN2_SPECIFIC_EXPORT QDataStream &operator<<(QDataStream &stream,
                                              const QVector<DelayerTemplateParam> &params);
TARN2_SPECIFIC_EXPORT QDataStream &operator>>(QDataStream &stream,
                                              QVector<DelayerTemplateParam> &params);

// Registers the module's records with the meta-type system under their qualified names, the two
// template vectors under "QVector<programmer::ListTemplateParam>" and
// "QVector<programmer::DelayerTemplateParam>" with the stream operators above (what QSettings
// needs to store them), and the step lists that travel in signals. The library calls it when it
// is loaded; calling it again is harmless.
TARN2_SPECIFIC_EXPORT void registerProgrammerMetaTypes();

} // namespace tarn2::specific::orvo5000::programmer
