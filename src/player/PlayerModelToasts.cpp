// Short messages over the picture.
#include "player/PlayerModel.h"

namespace zeph {

void PlayerModel::showToast(const QString &message, quint64 durationNanoseconds)
{
    publish(m_toastMessage, message, &PlayerModel::toastMessageChanged);
    const auto duration = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::nanoseconds(durationNanoseconds));
    m_toastTask.start(
        duration, [this] { publish(m_toastMessage, {}, &PlayerModel::toastMessageChanged); });
}

} // namespace zeph
