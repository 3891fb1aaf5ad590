// The English texts of the language table that the reference host has beside its program.
#pragma once

#include <map>

#include "frame/host/host_types.h"
#include "support/fake_host.h"

// The texts of the questions and dialogs. One that is missing fails the test.
std::map<Velmora::SDK::TextId, WString> EnglishTexts();

// The same, as long as a translation may be: those of up to 30 characters twice as long, the others longer by
// two fifths.
std::map<Velmora::SDK::TextId, WString> LongTexts();

// Gives the host these texts, with the second ones and those that all modules share.
void SpeakEnglish(FakeHost& host);
void SpeakAtLength(FakeHost& host);

// The same with the texts of MultiRename's window and dialogs, whose ids are those of other texts elsewhere.
void SpeakRenameEnglish(FakeHost& host);
void SpeakRenameAtLength(FakeHost& host);
