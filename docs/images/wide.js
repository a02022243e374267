// One cell, two cells or none: what stands in a column stays in it.

var GREETINGS = [
	{ language: "English",	cells: 7,	word: "Welcome" },
	{ language: "中文",	cells: 4,	word: "欢迎" },
	{ language: "日本語",	cells: 8,	word: "ようこそ" },
	{ language: "한국어",	cells: 8,	word: "환영해요" },
	{ language: "Ελληνικά",	cells: 11,	word: "Καλωσόρισες" },
	{ language: "Русский",	cells: 16,	word: "Добро пожаловать" }
];

// Letters with marks of their own, as one character and as several.
var sameWord = "café" === "café".normalize();
var name = "Việt" + " Việt" + " ö ñ m̄";

// What cannot be seen is shown: a bell, an escape, a form feed, a deletion.
var bell = "", reset = "[0m", page = "", gone = "";

function widthOf(text) {
	return Array.from(text).reduce(function (sum, sign) {
		return sum + (isWide(sign) ? 2 : isMark(sign) ? 0 : 1);
	}, 0);
}
