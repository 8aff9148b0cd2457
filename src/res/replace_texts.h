// Texts of the question before a file is replaced, for the dialog and for the command. %1: the file's name.
#ifndef TIDEWELL_RES_REPLACE_TEXTS_H
#define TIDEWELL_RES_REPLACE_TEXTS_H

#define TEXT_REPLACE_NAME "This folder already contains a file named '%1'."
#define TEXT_REPLACE_QUESTION "Would you like to replace the existing file?"

#endif
