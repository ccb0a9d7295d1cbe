#include "clock/Greet.h"

#include "character/SayText.h"
#include "clock/GreetingWord.h"
#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/ReportError.h"
#include "core/StartupTrace.h"

void Greet(App& app)
{
    const auto& s = app.Settings;
    try {
        const double greeting =
            Conversions::Val(s.Get(QStringLiteral("Greeting"), QStringLiteral("0")));
        const QString timeGreeting = s.Get(QStringLiteral("TimeGreeting"), QStringLiteral("1"));
        if (Conversions::Val(timeGreeting) != 1)
            return;
        TraceStartup("greeting handed to the character");
        SayText(app, GreetingWord(app.P.clock.Now().time().hour()), true);
        if (greeting == 0 || greeting == 1)
            SayTime(app);
        if (greeting == 0 || greeting == 2)
            SayDate(app);
        SayText(app, s.ReadText(QStringLiteral("GreetingText")), true);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 12.0f, error);
    }
}
