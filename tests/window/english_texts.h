// The English texts of the language table in the folder of the test program.
#pragma once

#include <map>

#include "frame/host/host_types.h"
#include "support/fake_host.h"

// Returns the texts of the questions and dialogs. A missing text fails the test.
std::map<Velmora::SDK::TextId, WString> EnglishTexts();

// Returns these texts at the length of long translations: twice as long up to 30 characters, the others
// longer by two fifths.
std::map<Velmora::SDK::TextId, WString> LongTexts();

// Give the host these texts, including the second ones and those that all modules share.
void SpeakEnglish(FakeHost& host);
void SpeakAtLength(FakeHost& host);

// Like the above, with the texts of MultiRename's window and dialogs, whose ids other modules use for other
// texts.
void SpeakRenameEnglish(FakeHost& host);
void SpeakRenameAtLength(FakeHost& host);
