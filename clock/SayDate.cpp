#include "clock/SayDate.h"

#include "character/SayText.h"
#include "clock/DateSentence.h"
#include "core/App.h"

void SayDate(App& app)
{
    SayText(app, DateSentence(app.P.clock.Now().date()), true);
}
