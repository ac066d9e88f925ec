#pragma once
// Help topics that are pages of their own rather than anchors on a module's
// page: the reference pages the scientific calculator's menu opens (the
// maths notebook, telephone numbers of Spain, international dialling codes,
// postal codes of Spain). helpPageOfTopic (Services.h) maps them.
inline constexpr int kMathNotebookTopic = 1510;  // page "mat"
inline constexpr int kSpainPhonesTopic = 1520;   // page "phonees"
inline constexpr int kWorldPhonesTopic = 1530;   // page "phoneint"
inline constexpr int kPostalCodesTopic = 1540;   // page "postalcodes"
