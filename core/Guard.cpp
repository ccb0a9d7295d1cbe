#include "core/Guard.h"

#include "platform/RuntimeError.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcEvents, "quorl.events", QtWarningMsg)

void RunGuarded(const char* routine, const std::function<void()>& body)
{
    try {
        body();
    } catch (const platform::RuntimeError& error) {
        qCWarning(lcEvents) << routine << "error" << error.Number << error.Source
                            << error.Description;
    } catch (const std::exception& error) {
        qCWarning(lcEvents) << routine << "error" << error.what();
    }
}
