/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Persona.h"

#include <iterator>

#include "Text.h"


namespace demo {


// clang-format off
static const Persona kCast[] = {
	{"Juniper", "Juniper (watering)", 163, 0,
		"Hello there! Pull up a chair.",
		"Good question. I would ask the plants, they have seen more than I have.",
		"Any time. It is what neighbours are for.",
		"Safe travels! The door is never locked.",
		{"The fern on the window sill has a new leaf.", "Somebody left a teapot on the stairs.",
			"I can hear the rain, or it is the fan of the server."},
		{"Just between us: the green teapot pours better than the blue one.",
			"I am listening. Go on."}},
	{"Сова", "Ночная сова", 152, 0,
		"Привет! Рада видеть.",
		"Хороший вопрос. Подумаю об этом ночью.",
		"Не за что!",
		"До встречи. Лети осторожно.",
		{"Сегодня очень тихая ночь.", "Кто-нибудь видел мои очки?", "Чай готов, угощайтесь."},
		{"Никому не скажу, совы умеют молчать.", "Интересно. Расскажи ещё."}},
	{"月うさぎ", "月うさぎ ☾", 149, 0,
		"こんにちは！ゆっくりしていってね。",
		"うーん、むずかしい質問ですね。",
		"どういたしまして！",
		"またね！",
		{"今夜は月がきれいです。", "お餅が焼けました。", "静かな夜ですね。"},
		{"ないしょの話？いいですよ。", "なるほど。それで？"}},
	{"<b>Bold</b> & Co", "&amp; <i>Sons</i>", 138, 0,
		"<b>Welcome!</b> We print anything & everything.",
		"We answer in <i>italics</i>, and only on weekdays.",
		"&nbsp;You are welcome.",
		"Good bye </b>",
		{"1 < 2 && 3 > 2, says our bookkeeper.", "<b>Sale!</b> Ampersands at half price: & & &",
			"Our sign reads &lt;open&gt;. It has read that for years."},
		{"This stays <u>between</u> us & the paper.", "Noted <br> filed."}},
	{"The Keeper", "The Keeper (counting cups)", 191, 2,
		"Good evening. House rules are on the wall.",
		"It is all written down in the ledger, page twelve.",
		"Thank the house, not me.",
		"Mind the step on your way out.",
		{"Eleven cups out, ten cups in. I am watching you.", "The lamps have been trimmed.",
			"Whoever drew on the ledger: it is a nice drawing, but please do not."},
		{"You may speak freely. The ledger is closed.", "I shall look into it."}},
	{"Dozing Otter", "Waking Otter", 133, 1,
		"Mmh? Oh. Hello.",
		"Ask me again after my nap.",
		"zzz… welcome… zzz",
		"Bye… zzz",
		{"zzz", "I dreamt of a river with no end of stones.", "Is it Tuesday already?"},
		{"Psst. I am not really asleep.", "Mhm… mhm… go on, my eyes are only resting."}},
	{"Grünspecht", "Frühspecht", 154, 0,
		"Servus! Schön, dass du da bist.",
		"Da müsste ich erst einmal nachklopfen.",
		"Gern geschehen!",
		"Tschüß und bis bald!",
		{"Klopf, klopf.", "Im Wald riecht es nach Regen.",
			"Heute schon über die Brücke gegangen? Ganz schön hoch."},
		{"Das bleibt unter uns und den Bäumen.", "Aha. Und dann?"}},
	{"Φάρος", "Φάρος (σβηστός)", 183, 0,
		"Καλώς ήρθες!",
		"Από εδώ ψηλά φαίνονται όλα, εκτός από αυτό.",
		"Παρακαλώ!",
		"Καλό ταξίδι!",
		{"Η θάλασσα είναι ήρεμη απόψε.", "Ένα καράβι πέρασε και χαιρέτησε.", "Ανάβω το φως."},
		{"Μόνο τα κύματα μας ακούν.", "Σε ακούω."}},
	{"100%s Wool", "%d%n Cotton", 137, 0,
		"Hi! 100%s natural, 0%d regrets.",
		"I am 50%% sure, give or take %s.",
		"No problem, %s!",
		"So long, and keep warm at 30%C.",
		{"The scarf is 80% done. The other half is harder.", "Dropped a stitch at %08x, as usual.",
			"C:\\wool\\new is not a newline, it is a basket."},
		{"My lips are knitted shut.", "%s, you said? I see."}},
	{"&File [*]", "&Edit [*]", 128, 3,
		"&Hello. You have reached the cabinet.",
		"That would be in the third drawer [*].",
		"Don't mention it. [*]",
		"&Close",
		{"Everything has its drawer.", "[*] means that I have changed my mind since I last saved it.",
			"Has anybody seen the key of drawer &seven?"},
		{"I file this under &Secrets.", "Under which letter shall I put that?"}},
	{"A Nick Precisely As Long As a Nick May Be Around Here: 63 Bytes", "Shorty", 189, 0,
		"A very good day to you, and to all who may come after you.",
		"There is a short answer to that, but I do not know it.",
		"The pleasure is, as it always has been and will be, entirely mine.",
		"Farewell!",
		{"I once had a short name. It got lost in the wash.",
			"Brevity is for those who have somewhere to be.", "Ahem."},
		{"A private word? I know a great many of them.", "Quite so, quite so."}},
};

static const char* const kGreetings[] = {"hello", "hi", "hey", "hallo", "servus", "good morning",
	"good evening", "привет", "Привет", "こんにちは", "Καλημέρα", "γεια", NULL};
static const char* const kThanks[] = {"thanks", "thank you", "danke", "спасибо", "Спасибо",
	"ありがとう", "ευχαριστώ", NULL};
static const char* const kFarewells[] = {"bye", "goodbye", "good night", "see you", "tschüß",
	"пока", "Пока", "またね", NULL};
// clang-format on


static bool
contains_any(const std::string& text, const char* const* words)
{
	for (; *words != NULL; words++) {
		if (contains_word(text, *words))
			return true;
	}
	return false;
}


static bool
is_question(const std::string& text)
{
	return text.find('?') != std::string::npos || text.find("？") != std::string::npos;
}


/*!	What the persona says to something that was said in the chat.
	\param turn How often it has spoken before, so that it does not repeat itself.
*/
std::string
Persona::AnswerTo(const std::string& text, size_t turn) const
{
	std::string plain = to_lower(text);
	if (contains_any(plain, kThanks))
		return onThanks;
	if (contains_any(plain, kFarewells))
		return farewell;
	if (is_question(plain))
		return onQuestion;
	if (contains_any(plain, kGreetings))
		return greeting;
	return Remark(turn);
}


/*!	The same for what was said in private: the confidences first, the usual answers otherwise. */
std::string
Persona::WhisperTo(const std::string& text, size_t turn) const
{
	if (turn < std::size(whispers) || turn % 3 == 2)
		return whispers[turn % std::size(whispers)];
	return AnswerTo(text, turn);
}


const char*
Persona::Remark(size_t turn) const
{
	return remarks[turn % std::size(remarks)];
}


size_t
Persona::CountCast()
{
	return std::size(kCast);
}


const Persona&
Persona::Cast(size_t index)
{
	return kCast[index];
}


} // namespace demo
