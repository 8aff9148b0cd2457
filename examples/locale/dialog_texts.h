// German texts of the dialogs and menus.
#ifndef TIDEWELL_LOCALE_DIALOG_TEXTS_H
#define TIDEWELL_LOCALE_DIALOG_TEXTS_H

#define TEXT_START "&Starten"
#define TEXT_CLOSE "S&chließen"
#define TEXT_HELP "&Hilfe"
#define TEXT_VIEW "&Anzeigen..."
#define TEXT_SAVE_AS "&Speichern unter..."
#define TEXT_WHATS_THIS "&Direkthilfe"

#define TEXT_FORMAT_TITLE "Mac-Diskette formatieren - %1"
#define TEXT_FORMAT_TYPE "Format&typ:"
#define TEXT_FORMAT_QUICK "&QuickFormat"
#define TEXT_FORMAT_LABEL "Volume&bezeichnung:"

#define TEXT_COPY_TITLE "Tidewell 98 - Diskette kopieren"
#define TEXT_COPY_FROM "Kopieren &von:"
#define TEXT_COPY_TO "Kopieren &nach:"
#define TEXT_COPY_FORMAT "&Zieldiskette vor dem Kopieren formatieren"

#define TEXT_VIEWER_TITLE "Tidewell 98 - Ressourcen"
#define TEXT_VIEWER_TREE "&Ressourcen:"
#define TEXT_VIEWER_TYPE "Typ:"
#define TEXT_VIEWER_SIZE "Größe:"
#define TEXT_VIEWER_ATTRIBUTES "Attribute:"
#define TEXT_VIEWER_SYSTEM_HEAP "Systemheap"
#define TEXT_VIEWER_PURGEABLE "Entfernbar"
#define TEXT_VIEWER_LOCKED "Gesperrt"
#define TEXT_VIEWER_PROTECTED "Geschützt"
#define TEXT_VIEWER_PRELOAD "Vorgeladen"
#define TEXT_CONTENTS_TITLE "Inhalt der Ressource"

#define TEXT_PAGE_MAC_NAME "Mac-Name:"
#define TEXT_PAGE_DATA_SIZE "Daten:"
#define TEXT_PAGE_RESOURCE_SIZE "Ressourcen:"
#define TEXT_PAGE_TYPE "Datei&typ:"
#define TEXT_PAGE_CREATOR "&Ersteller:"
#define TEXT_PAGE_FILES "Dateien:"
#define TEXT_PAGE_FOLDERS "Ordner:"
#define TEXT_PAGE_ITEMS "Objekte im Ordner:"
#define TEXT_PAGE_ATTRIBUTES "Attribute"
#define TEXT_PAGE_NAME_LOCKED "&Name gesperrt"
#define TEXT_PAGE_HAS_BUNDLE "Mit Bundle"
#define TEXT_PAGE_STATIONERY "Formularblock"
#define TEXT_PAGE_CUSTOM_ICON "Eigenes Symbol"
#define TEXT_PAGE_INITED "Initialisiert"
#define TEXT_PAGE_SHARED "Gemeinsam"

#endif
