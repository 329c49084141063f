#pragma once

#include <QString>

// Answers the next modal QFileDialog that the window shows: with path, an
// absolute one, or by cancelling it when path is empty. Call it before the
// click that opens the dialog; answers prepared in a row go to the dialogs in
// the order they are shown. The dialog is answered from inside its own event
// loop, with path typed into its file-name box; a dialog that would then hand
// back anything but path is cancelled and fails the test with what it held.
// The dialog's title is kept for the test to check.
void answerNextFileDialog(const QString &path);
// Title and start directory of the last dialog answered.
QString lastDialogTitle();
QString lastDialogDirectory();
// Answers prepared that no dialog has taken yet: a test that leaves one behind
// would have it answer a dialog of a later test.
int pendingDialogAnswers();
