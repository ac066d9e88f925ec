#pragma once
// How a calculation tells the user that something went wrong: ErrorText
// builds the text of an error code from the string table ("Error:  " and the
// code's lines), ReportError shows it in the program's message box under the
// title "Calvix  -  <MainMenuTitle>  -  <SectionTitle>".
#include <QString>

// The text of an error code: string 2800, ":  ", then the code's own lines
// (string 2000 + code for most codes), separated by line feeds.
QString ErrorText(int code);

// Shows ErrorText(code) with the given sound (MessageSound) and button set.
// The message style picks the box's kind: 3 -> 3, 8 -> 4, 2 -> 2, 4 and 5 -> 1;
// any other style shows nothing. Returns when the box is dismissed.
void ReportError(int code, int sound, int messageStyle, int buttonSet);
