<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>qf::ActionChoices</name>
    <message>
        <source>The group that the menu shows</source>
        <translation>Die Gruppe, die das Menü zeigt</translation>
    </message>
</context>
<context>
    <name>qf::AgentShortcuts</name>
    <message>
        <source>Not active: Quenfold&apos;s menu does not run</source>
        <translation>Nicht aktiv: Das Menü von Quenfold läuft nicht</translation>
    </message>
    <message>
        <source>Quenfold&apos;s menu does not answer</source>
        <translation>Das Menü von Quenfold antwortet nicht</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>No keys are recorded</source>
        <translation>Keine Tasten aufgenommen</translation>
    </message>
    <message>
        <source>Not active: these keys are needed for typing; add Ctrl or Super</source>
        <translation>Nicht aktiv: Diese Tasten werden zum Schreiben gebraucht; bitte Strg oder Super dazunehmen</translation>
    </message>
    <message>
        <source>Not active: a shortcut further down has the same keys</source>
        <translation>Nicht aktiv: Ein Tastenkürzel weiter unten hat dieselben Tasten</translation>
    </message>
    <message>
        <source>Not active: %1</source>
        <translation>Nicht aktiv: %1</translation>
    </message>
</context>
<context>
    <name>qf::AgentStatus</name>
    <message>
        <source>The menu is not installed: there is no entry %1.desktop.</source>
        <translation>Das Menü ist nicht installiert: Es gibt keinen Eintrag %1.desktop.</translation>
    </message>
</context>
<context>
    <name>qf::Autostart</name>
    <message>
        <source>%1 is missing: install Quenfold anew.</source>
        <translation>%1 fehlt: Bitte Quenfold neu installieren.</translation>
    </message>
    <message>
        <source>There is no home folder that could hold the start at login: see that HOME is set.</source>
        <translation>Es gibt keinen persönlichen Ordner, in dem der Start bei der Anmeldung stehen könnte: Bitte dafür sorgen, dass HOME gesetzt ist.</translation>
    </message>
</context>
<context>
    <name>qf::CleanerEditor</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>N&amp;ame</translation>
    </message>
    <message>
        <source>&amp;Description</source>
        <translation>&amp;Beschreibung</translation>
    </message>
    <message>
        <source>Col&amp;our</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Add &amp;Cleaner</source>
        <translation>Bereini&amp;gung dazu</translation>
    </message>
    <message>
        <source>Add Find and &amp;Replace</source>
        <translation>S&amp;uchen und Ersetzen dazu</translation>
    </message>
    <message>
        <source>Not in force yet, the stored steps count: %1</source>
        <translation>Gilt noch nicht, es zählen die gespeicherten Schritte: %1</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
</context>
<context>
    <name>qf::CleanerFinder</name>
    <message>
        <source>Cleaners</source>
        <translation>Bereinigungen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search cleaners</source>
        <translation>Bereinigungen suchen</translation>
    </message>
</context>
<context>
    <name>qf::CleanerListModel</name>
    <message>
        <source>%1, your own</source>
        <translation>%1, eigene</translation>
    </message>
</context>
<context>
    <name>qf::CleanersPage</name>
    <message>
        <source>Ne&amp;w</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Makes a cleaner of your own that begins as this one</source>
        <translation>Macht eine eigene Bereinigung, die wie diese beginnt</translation>
    </message>
    <message>
        <source>New Cleaner</source>
        <translation>Neue Bereinigung</translation>
    </message>
    <message>
        <source>These steps cannot be carried out yet.</source>
        <translation>Diese Schritte sind noch nicht ausführbar.</translation>
    </message>
    <message>
        <source>This one works on the clipboard alone.</source>
        <translation>Diese wirkt nur auf die Zwischenablage.</translation>
    </message>
    <message>
        <source>Remove Cleaner</source>
        <translation>Bereinigung entfernen</translation>
    </message>
    <message>
        <source>Remove the cleaner “%1”?</source>
        <translation>Die Bereinigung „%1“ entfernen?</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>The clipboard is clean.</source>
        <translation>Die Zwischenablage ist bereinigt.</translation>
    </message>
    <message>
        <source>Clean the Clip&amp;board</source>
        <translation>Zwischena&amp;blage bereinigen</translation>
    </message>
</context>
<context>
    <name>qf::ColorBox</name>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Menu&apos;s own</source>
        <translation>Wie im Menü</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Andere …</translation>
    </message>
</context>
<context>
    <name>qf::GroupEntriesModel</name>
    <message>
        <source>There is no cleaner %1</source>
        <translation>Es gibt keine Bereinigung %1</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>Separator</source>
        <translation>Trennlinie</translation>
    </message>
    <message>
        <source>Label %1</source>
        <translation>Überschrift %1</translation>
    </message>
</context>
<context>
    <name>qf::GroupsPage</name>
    <message>
        <source>Ne&amp;w Group</source>
        <translation>&amp;Neue Gruppe</translation>
    </message>
    <message>
        <source>&amp;Groups</source>
        <translation>&amp;Gruppen</translation>
    </message>
    <message>
        <source>Name of the group</source>
        <translation>Name der Gruppe</translation>
    </message>
    <message>
        <source>Text of the label</source>
        <translation>Text der Überschrift</translation>
    </message>
    <message>
        <source>Add &amp;Label</source>
        <translation>Übersch&amp;rift dazu</translation>
    </message>
    <message>
        <source>Add &amp;Separator</source>
        <translation>&amp;Trennlinie dazu</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Überschrift</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>N&amp;ame</translation>
    </message>
    <message>
        <source>Label &amp;text</source>
        <translation>Te&amp;xt</translation>
    </message>
    <message>
        <source>Col&amp;our</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>New Group</source>
        <translation>Neue Gruppe</translation>
    </message>
    <message>
        <source>Remove Group</source>
        <translation>Gruppe entfernen</translation>
    </message>
    <message>
        <source>Remove the group “%1”? Its cleaners stay.</source>
        <translation>Die Gruppe „%1“ entfernen? Ihre Bereinigungen bleiben.</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>In the group</source>
        <translation>In der Gruppe</translation>
    </message>
    <message>
        <source>&amp;Add to the Group</source>
        <translation>&amp;Zur Gruppe hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>qf::MenuPage</name>
    <message>
        <source>Folded page</source>
        <translation>Gefaltetes Blatt</translation>
    </message>
    <message>
        <source>Broom</source>
        <translation>Besen</translation>
    </message>
    <message>
        <source>Quill</source>
        <translation>Feder</translation>
    </message>
    <message>
        <source>Sparkle</source>
        <translation>Funkeln</translation>
    </message>
    <message>
        <source>Scissors</source>
        <translation>Schere</translation>
    </message>
    <message>
        <source>Letter Q</source>
        <translation>Buchstabe Q</translation>
    </message>
    <message>
        <source>Icon in the tray</source>
        <translation>Symbol im Panel</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Shows one &amp;group; the others can be chosen</source>
        <translation>Zeigt eine &amp;Gruppe; die anderen sind wählbar</translation>
    </message>
    <message>
        <source>Shows &amp;all groups as submenus</source>
        <translation>Zeigt &amp;alle Gruppen als Untermenüs</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Show the &amp;menu in the tray after login</source>
        <translation>Das &amp;Menü nach der Anmeldung im Panel zeigen</translation>
    </message>
    <message>
        <source>Start Quenfold in the &amp;background, without this window</source>
        <translation>Quenfold im &amp;Hintergrund starten, ohne dieses Fenster</translation>
    </message>
    <message>
        <source>Always start Quenfold with these &amp;preferences</source>
        <translation>Quenfold immer mit diesen &amp;Einstellungen starten</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Takes the &amp;keyboard when it appears</source>
        <translation>Übernimmt beim Erscheinen die &amp;Tastatur</translation>
    </message>
    <message>
        <source>Without a selection</source>
        <translation>Ohne Auswahl</translation>
    </message>
    <message>
        <source>Clean the &amp;whole text</source>
        <translation>Den ganzen Te&amp;xt säubern</translation>
    </message>
    <message>
        <source>&amp;Do nothing</source>
        <translation>&amp;Nichts tun</translation>
    </message>
</context>
<context>
    <name>qf::MenuSettings</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 ist nicht lesbar</translation>
    </message>
    <message>
        <source>The settings could not be read. They were put aside as %1, and new ones begun.</source>
        <translation>Die Einstellungen waren nicht lesbar. Sie liegen nun als %1 beiseite, und neue sind begonnen.</translation>
    </message>
</context>
<context>
    <name>qf::Pages</name>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Cleaners</source>
        <translation>Bereinigungen</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
</context>
<context>
    <name>qf::PersonalLists</name>
    <message>
        <source>That was changed by another program at the same moment. What you see now is how it stands; please try again.</source>
        <translation>Das hat ein anderes Programm im selben Augenblick geändert. Zu sehen ist jetzt der neue Stand; bitte noch einmal versuchen.</translation>
    </message>
    <message>
        <source>%1 cannot be read, so nothing can be changed here until it is mended: %2</source>
        <translation>%1 ist nicht lesbar; hier lässt sich nichts ändern, bis das behoben ist: %2</translation>
    </message>
    <message>
        <source>Some of %1 cannot be used and is left out:</source>
        <translation>Einiges in %1 ist nicht brauchbar und bleibt weg:</translation>
    </message>
    <message>
        <source>%1 could not be changed: %2</source>
        <translation>%1 konnte nicht geändert werden: %2</translation>
    </message>
    <message>
        <source>A cleaner needs a name.</source>
        <translation>Eine Bereinigung braucht einen Namen.</translation>
    </message>
    <message>
        <source>A group needs a name.</source>
        <translation>Eine Gruppe braucht einen Namen.</translation>
    </message>
    <message>
        <source>There is a group &quot;%1&quot; already.</source>
        <translation>Es gibt schon eine Gruppe „%1“.</translation>
    </message>
</context>
<context>
    <name>qf::ProblemBar</name>
    <message>
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>qf::QFWindow</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>qf::QtPaletteTable</name>
    <message>
        <source>Cleaners</source>
        <translation>Bereinigungen</translation>
    </message>
</context>
<context>
    <name>qf::QtPaletteWindow</name>
    <message>
        <source>No cleaner found</source>
        <translation>Keine Bereinigung gefunden</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>Bearbeiten …</translation>
    </message>
    <message>
        <source>Edit groups</source>
        <translation>Gruppen bearbeiten</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Search cleaners</source>
        <translation>Bereinigungen suchen</translation>
    </message>
    <message>
        <source>This group is empty</source>
        <translation>Diese Gruppe ist leer</translation>
    </message>
    <message>
        <source>Clipboard only</source>
        <translation>Nur Zwischenablage</translation>
    </message>
    <message>
        <source>Clean what is on the clipboard and leave the application alone</source>
        <translation>Bereinigt den Inhalt der Zwischenablage und lässt die Anwendung in Ruhe</translation>
    </message>
</context>
<context>
    <name>qf::QtPopUpButton</name>
    <message>
        <source>Group: %1</source>
        <translation>Gruppe: %1</translation>
    </message>
</context>
<context>
    <name>qf::Reasons</name>
    <message>
        <source>no tray on this desktop for the icon; use the palette, or add a tray to a panel</source>
        <translation>auf diesem Desktop ist kein Platz für das Symbol; bitte die Palette verwenden oder einem Panel einen Benachrichtigungsbereich geben</translation>
    </message>
    <message>
        <source>another program holds %1; choose other keys here or there</source>
        <translation>%1 hält ein anderes Programm; bitte hier oder dort andere Tasten wählen</translation>
    </message>
    <message>
        <source>this keyboard has no key for %1</source>
        <translation>diese Tastatur hat keine Taste für %1</translation>
    </message>
    <message>
        <source>the X server tells nothing of its keyboard</source>
        <translation>der X-Server sagt nichts über seine Tastatur</translation>
    </message>
    <message>
        <source>the X server closed the connection</source>
        <translation>der X-Server hat die Verbindung beendet</translation>
    </message>
    <message>
        <source>the connection to the X display was lost; log in again</source>
        <translation>die Verbindung zum X-Display ist verloren; bitte neu anmelden</translation>
    </message>
    <message>
        <source>the accessibility bus refuses connections: %1</source>
        <translation>der Bus der Barrierefreiheit lehnt Verbindungen ab: %1</translation>
    </message>
    <message>
        <source>the connection to the D-Bus session bus was lost; log out and in again</source>
        <translation>die Verbindung zum Sitzungsbus (D-Bus) ist verloren; bitte ab- und wieder anmelden</translation>
    </message>
    <message>
        <source>no window manager here tells which window is active; start one that knows _NET_ACTIVE_WINDOW</source>
        <translation>kein Fenstermanager sagt hier, welches Fenster aktiv ist; bitte einen starten, der _NET_ACTIVE_WINDOW kennt</translation>
    </message>
    <message>
        <source>The list of cleaners could not be published: %1</source>
        <translation>Die Liste der Bereinigungen konnte nicht veröffentlicht werden: %1</translation>
    </message>
    <message>
        <source>finding took too long</source>
        <translation>das Suchen dauerte zu lange</translation>
    </message>
    <message>
        <source>finding took too much memory</source>
        <translation>das Suchen brauchte zu viel Speicher</translation>
    </message>
    <message>
        <source>the result is too large</source>
        <translation>das Ergebnis ist zu groß</translation>
    </message>
    <message>
        <source>the replacement names a group that the expression has not</source>
        <translation>die Ersetzung nennt eine Gruppe, die der Ausdruck nicht hat</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>er ist nicht lesbar</translation>
    </message>
    <message>
        <source>it cannot be read as Markdown</source>
        <translation>er ist nicht als Markdown lesbar</translation>
    </message>
    <message>
        <source>it is no Base64</source>
        <translation>er ist kein Base64</translation>
    </message>
    <message>
        <source>its elements are nested too deeply</source>
        <translation>seine Elemente sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>The text in %1 cannot be cleaned, because %2</source>
        <translation>Der Text in %1 kann nicht bereinigt werden: %2</translation>
    </message>
    <message>
        <source>The text cannot be cleaned, because %1</source>
        <translation>Der Text kann nicht bereinigt werden: %1</translation>
    </message>
    <message>
        <source>it does not answer</source>
        <translation>sie antwortet nicht</translation>
    </message>
    <message>
        <source>it answers too slowly</source>
        <translation>sie antwortet zu langsam</translation>
    </message>
    <message>
        <source>it shows no window on the accessibility bus</source>
        <translation>sie zeigt auf dem Bus für Barrierefreiheit kein Fenster</translation>
    </message>
    <message>
        <source>no window of another application has had the input yet</source>
        <translation>noch kein Fenster einer anderen Anwendung hatte die Eingabe</translation>
    </message>
    <message>
        <source>it is not on the accessibility bus; where it can be made to use it, start it anew</source>
        <translation>sie ist nicht auf dem Bus für Barrierefreiheit; wo sie ihn benutzen kann, bitte neu starten</translation>
    </message>
    <message>
        <source>it has not copied its text within 1 s</source>
        <translation>sie hat ihren Text nicht binnen 1 s kopiert</translation>
    </message>
    <message>
        <source>nothing is selected in it</source>
        <translation>darin ist nichts ausgewählt</translation>
    </message>
    <message>
        <source>it takes no text there; it may be read-only</source>
        <translation>sie nimmt dort keinen Text an; vielleicht ist er nur zu lesen</translation>
    </message>
    <message>
        <source>there is nothing to select in it</source>
        <translation>darin gibt es nichts auszuwählen</translation>
    </message>
    <message>
        <source>its context menu does not offer that</source>
        <translation>ihr Kontextmenü bietet das nicht an</translation>
    </message>
    <message>
        <source>nothing is left of it, and its Paste deletes nothing; delete it there</source>
        <translation>es bleibt nichts davon, und ihr Einfügen löscht nichts; bitte dort löschen</translation>
    </message>
    <message>
        <source>it refuses to tell its text</source>
        <translation>sie gibt ihren Text nicht preis</translation>
    </message>
    <message>
        <source>the clipboard could not be taken</source>
        <translation>die Zwischenablage war nicht zu übernehmen</translation>
    </message>
    <message>
        <source>it refuses to select its text</source>
        <translation>sie wählt ihren Text nicht aus</translation>
    </message>
    <message>
        <source>it refuses to copy</source>
        <translation>sie kopiert nicht</translation>
    </message>
    <message>
        <source>its menu refuses</source>
        <translation>ihr Menü weigert sich</translation>
    </message>
    <message>
        <source>there is no text on the clipboard</source>
        <translation>in der Zwischenablage ist kein Text</translation>
    </message>
    <message>
        <source>it refuses the text</source>
        <translation>sie nimmt den Text nicht an</translation>
    </message>
    <message>
        <source>it has kept the old text too; Undo there takes the new one away</source>
        <translation>sie hat auch den alten Text behalten; Rückgängig nimmt dort den neuen fort</translation>
    </message>
    <message>
        <source>it has taken only a part of the new text; the whole is on the clipboard</source>
        <translation>sie hat nur einen Teil des neuen Textes genommen; der ganze ist in der Zwischenablage</translation>
    </message>
    <message>
        <source>it has refused the new text after it gave up the old one; Undo there brings that back</source>
        <translation>sie hat den neuen Text nicht angenommen, nachdem sie den alten hergegeben hatte; Rückgängig bringt ihn dort zurück</translation>
    </message>
    <message>
        <source>its window has no menu bar with Copy and Paste, and nothing in it has the focus</source>
        <translation>ihr Fenster hat keine Menüleiste mit Kopieren und Einfügen, und nichts darin hat den Fokus</translation>
    </message>
    <message>
        <source>a password field has the focus, which keeps its text to itself</source>
        <translation>den Fokus hat ein Passwortfeld, das seinen Text für sich behält</translation>
    </message>
    <message>
        <source>the accessibility bus is off; install at-spi2-core, then log out and in again</source>
        <translation>der Bus für Barrierefreiheit ist aus; bitte at-spi2-core installieren, dann ab- und wieder anmelden</translation>
    </message>
    <message>
        <source>the command holds more than 16 MiB of data</source>
        <translation>der Befehl enthält mehr als 16 MiB</translation>
    </message>
    <message>
        <source>Quenfold is not running; is it installed?</source>
        <translation>Quenfold läuft nicht; ist es installiert?</translation>
    </message>
    <message>
        <source>the session bus did not take the command</source>
        <translation>der Sitzungsbus hat den Befehl nicht angenommen</translation>
    </message>
    <message>
        <source>Quenfold is not running any more</source>
        <translation>Quenfold läuft nicht mehr</translation>
    </message>
    <message>
        <source>Quenfold ended before it had answered</source>
        <translation>Quenfold endete, bevor es geantwortet hatte</translation>
    </message>
    <message>
        <source>Quenfold refused the command: %1</source>
        <translation>Quenfold hat den Befehl abgelehnt: %1</translation>
    </message>
    <message>
        <source>the application is not installed</source>
        <translation>die Anwendung ist nicht installiert</translation>
    </message>
    <message>
        <source>cannot connect to the X server %1</source>
        <translation>keine Verbindung zum X-Server %1</translation>
    </message>
    <message>
        <source>no X server: DISPLAY is not set</source>
        <translation>kein X-Server: DISPLAY ist nicht gesetzt</translation>
    </message>
    <message>
        <source>the X server lacks the XFIXES extension</source>
        <translation>dem X-Server fehlt die Erweiterung XFIXES</translation>
    </message>
    <message>
        <source>there is no X display; hot keys work in an X11 session only</source>
        <translation>es gibt keine X-Anzeige; Tastenkürzel wirken nur in einer X11-Sitzung</translation>
    </message>
    <message>
        <source>the X server lacks the XKEYBOARD extension</source>
        <translation>dem X-Server fehlt die Erweiterung XKEYBOARD</translation>
    </message>
    <message>
        <source>the X server does not answer; %1 is not registered</source>
        <translation>der X-Server antwortet nicht; %1 ist nicht angemeldet</translation>
    </message>
    <message>
        <source>another program holds the keyboard: its combinations, and the desktop&apos;s, cannot be recorded; close its menu or let go of all keys</source>
        <translation>ein anderes Programm hält die Tastatur: seine Tasten und die des Desktops sind nicht aufzunehmen; bitte sein Menü schließen oder alle Tasten loslassen</translation>
    </message>
    <message>
        <source>in a Wayland session shortcuts are heard only while an X11 application has the input; log in to an X11 session to have them everywhere</source>
        <translation>in einer Wayland-Sitzung sind Tastenkürzel nur zu hören, solange eine X11-Anwendung die Eingabe hat; für alle anderen bitte an einer X11-Sitzung anmelden</translation>
    </message>
    <message>
        <source>its window has no menu bar with Copy and Paste, and what has the focus there does not offer its text</source>
        <translation>ihr Fenster hat keine Menüleiste mit Kopieren und Einfügen, und was darin den Fokus hat, bietet seinen Text nicht an</translation>
    </message>
    <message>
        <source>there is no D-Bus session bus; start the programs from a desktop session or with dbus-run-session</source>
        <translation>es gibt keinen D-Bus-Sitzungsbus; bitte die Programme aus einer Desktop-Sitzung oder mit dbus-run-session starten</translation>
    </message>
    <message>
        <source>there is no X display; the windows of other applications can be reached in an X11 session only</source>
        <translation>es gibt keine X-Anzeige; die Fenster anderer Anwendungen sind nur in einer X11-Sitzung zu erreichen</translation>
    </message>
    <message>
        <source>Quenfold did not answer within %1 s; it may still carry out the command later</source>
        <translation>Quenfold hat nicht binnen %1 s geantwortet; vielleicht führt es den Befehl noch aus</translation>
    </message>
    <message>
        <source>%1 cannot be started: %2</source>
        <translation>%1 ist nicht zu starten: %2</translation>
    </message>
    <message>
        <source>it ended before it appeared on the bus</source>
        <translation>es endete, bevor es auf dem Bus erschien</translation>
    </message>
    <message>
        <source>it has ended</source>
        <translation>es ist beendet</translation>
    </message>
    <message>
        <source>No X display: start Quenfold in a desktop session with X11 or XWayland (DISPLAY).</source>
        <translation>Kein X-Display: Quenfold in einer Desktop-Sitzung mit X11 oder XWayland starten (DISPLAY).</translation>
    </message>
    <message>
        <source>the settings file gives it no uuid, or one that is not its key</source>
        <translation>die Einstellungsdatei gibt ihm keine uuid oder eine andere als seinen Schlüssel</translation>
    </message>
    <message>
        <source>the engine of Quenfold is not installed; install Quenfold again</source>
        <translation>die Engine von Quenfold ist nicht installiert; bitte Quenfold neu installieren</translation>
    </message>
    <message>
        <source>files of Quenfold are missing in %1; install Quenfold again</source>
        <translation>in %1 fehlen Dateien von Quenfold; bitte Quenfold neu installieren</translation>
    </message>
    <message>
        <source>the text on the clipboard is larger than 256 MiB</source>
        <translation>der Text in der Zwischenablage ist größer als 256 MiB</translation>
    </message>
    <message>
        <source>the connection to the accessibility bus was lost; start the applications anew</source>
        <translation>die Verbindung zum Bus für Barrierefreiheit ist verloren; bitte die Anwendungen neu starten</translation>
    </message>
    <message>
        <source>the accessibility service does not answer; log out and in again</source>
        <translation>der Dienst für Barrierefreiheit antwortet nicht; bitte ab- und wieder anmelden</translation>
    </message>
    <message>
        <source>what has the focus there is no text; click into the text first</source>
        <translation>was dort den Fokus hat, ist kein Text; bitte zuerst in den Text klicken</translation>
    </message>
    <message>
        <source>its menu copies another text than the selected one</source>
        <translation>ihr Menü kopiert einen anderen Text als den ausgewählten</translation>
    </message>
    <message>
        <source>several cells are selected; clean one cell at a time</source>
        <translation>mehrere Zellen sind ausgewählt; bitte eine nach der anderen bereinigen</translation>
    </message>
    <message>
        <source>the new text would fill several cells; it is on the clipboard</source>
        <translation>der neue Text würde mehrere Zellen füllen; er liegt in der Zwischenablage</translation>
    </message>
    <message>
        <source>it has opened a window to ask about the new text; answer there</source>
        <translation>sie hat ein Fenster mit einer Frage zum neuen Text geöffnet; bitte dort antworten</translation>
    </message>
    <message>
        <source>its menu does not offer that</source>
        <translation>ihr Menü bietet das nicht an</translation>
    </message>
    <message>
        <source>its selection was dropped when the shortcut was pressed; use the palette there</source>
        <translation>ihre Auswahl ging beim Drücken des Tastenkürzels verloren; bitte dort die Palette benutzen</translation>
    </message>
    <message>
        <source>it shows its texts to other programs only when it was started with --force-renderer-accessibility</source>
        <translation>sie zeigt ihre Texte anderen Programmen nur, wenn sie mit --force-renderer-accessibility gestartet wurde</translation>
    </message>
    <message>
        <source>it offers no Paste to other programs; show its menu bar if it has one, or paste there yourself</source>
        <translation>sie bietet anderen Programmen kein Einfügen an; bitte ihre Menüleiste zeigen, falls sie eine hat, oder dort selbst einfügen</translation>
    </message>
    <message>
        <source>%1: %2. The text was left as it was.</source>
        <source>%1: %2. The text was left as it is.</source>
        <translation>%1: %2. Der Text blieb, wie er war.</translation>
    </message>
    <message>
        <source>the clipboard holds a password or another secret</source>
        <translation>die Zwischenablage enthält ein Passwort oder ein anderes Geheimnis</translation>
    </message>
    <message>
        <source>there is no cleaning to undo</source>
        <translation>es gibt nichts rückgängig zu machen</translation>
    </message>
    <message>
        <source>what was copied is not the result of the last cleaning</source>
        <translation>was kopiert wurde, ist nicht das Ergebnis der letzten Bereinigung</translation>
    </message>
    <message>
        <source>the result of the last cleaning stands in this text more than once</source>
        <translation>das Ergebnis der letzten Bereinigung steht mehr als einmal in diesem Text</translation>
    </message>
    <message>
        <source>there is no web address in the text</source>
        <translation>im Text steht keine Webadresse</translation>
    </message>
    <message>
        <source>there is no e-mail address in the text</source>
        <translation>im Text steht keine E-Mail-Adresse</translation>
    </message>
    <message>
        <source>there is no number in the text</source>
        <translation>im Text steht keine Zahl</translation>
    </message>
    <message>
        <source>this is not valid JSON%1</source>
        <translation>das ist kein gültiges JSON%1</translation>
    </message>
    <message>
        <source> (line %1, column %2)</source>
        <translation> (Zeile %1, Spalte %2)</translation>
    </message>
    <message>
        <source>the application that copied it does not hand over the text on the clipboard</source>
        <translation>die Anwendung, aus der kopiert wurde, gibt den Text in der Zwischenablage nicht heraus</translation>
        <source>it offers no Paste to other programs; show its menu bar if it has one, or paste there yourself</source>
        <translation>sie bietet anderen Programmen kein Einfügen an; bitte ihre Menüleiste zeigen, falls sie eine hat, oder dort selbst einfügen</translation>
    </message>
    <message>
        <source>the application that copied it does not hand over the text on the clipboard</source>
        <translation>die Anwendung, die ihn kopiert hat, gibt den Text der Zwischenablage nicht heraus</translation>
    </message>
</context>
<context>
    <name>qf::ReorderableList</name>
    <message>
        <source>%1: Move Up</source>
        <translation>%1: nach oben</translation>
    </message>
    <message>
        <source>Alt+Up</source>
        <translation>Alt+Auf</translation>
    </message>
    <message>
        <source>%1: Move Down</source>
        <translation>%1: nach unten</translation>
    </message>
    <message>
        <source>Alt+Down</source>
        <translation>Alt+Ab</translation>
    </message>
    <message>
        <source>%1: Remove</source>
        <translation>%1: entfernen</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Entf</translation>
    </message>
</context>
<context>
    <name>qf::ServiceNames</name>
    <message>
        <source>Text of other applications</source>
        <translation>Text anderer Anwendungen</translation>
    </message>
    <message>
        <source>Commands between menu and engine</source>
        <translation>Befehle zwischen Menü und Engine</translation>
    </message>
    <message>
        <source>Your own cleaners and groups</source>
        <translation>Eigene Bereinigungen und Gruppen</translation>
    </message>
    <message>
        <source>News of changed settings</source>
        <translation>Nachricht von geänderten Einstellungen</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Names of keys</source>
        <translation>Namen der Tasten</translation>
    </message>
    <message>
        <source>Latest command</source>
        <translation>Letzter Befehl</translation>
    </message>
    <message>
        <source>List of cleaners for the menu</source>
        <translation>Liste der Bereinigungen für das Menü</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Icon in the tray</source>
        <translation>Symbol im Panel</translation>
    </message>
    <message>
        <source>Windows and applications</source>
        <translation>Fenster und Anwendungen</translation>
    </message>
    <message>
        <source>Installed files</source>
        <translation>Installierte Dateien</translation>
    </message>
</context>
<context>
    <name>qf::ShortcutRow</name>
    <message>
        <source>shows the palette, or hides it</source>
        <translation>zeigt die Palette oder blendet sie aus</translation>
    </message>
    <message>
        <source>What the keys do</source>
        <translation>Was die Tasten tun</translation>
    </message>
    <message>
        <source>apply the cleaner</source>
        <translation>die Bereinigung anwenden</translation>
    </message>
    <message>
        <source>show the menu of the group</source>
        <translation>das Menü der Gruppe zeigen</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Cleaner</source>
        <translation>Bereinigung</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <comment>action, keys</comment>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>qf::ShortcutsPage</name>
    <message>
        <source>These keys work in every application. Click a field, or press Space in it, then the keys.</source>
        <translation>Diese Tasten wirken in jeder Anwendung. Ein Feld anklicken oder darin die Leertaste drücken, dann die Tasten.</translation>
    </message>
    <message>
        <source>No keys can be recorded: %1</source>
        <translation>Es lassen sich keine Tasten aufnehmen: %1</translation>
    </message>
    <message>
        <source>&amp;Add a shortcut</source>
        <translation>Tastenkürzel &amp;hinzufügen</translation>
    </message>
</context>
<context>
    <name>qf::StatusPage</name>
    <message>
        <source>%1: works</source>
        <translation>%1: funktioniert</translation>
    </message>
    <message>
        <source>Services of the menu</source>
        <translation>Dienste des Menüs</translation>
    </message>
    <message>
        <source>Services of the engine</source>
        <translation>Dienste der Engine</translation>
    </message>
    <message>
        <source>Menu in the tray</source>
        <translation>Menü im Panel</translation>
    </message>
    <message>
        <source>Engine</source>
        <translation>Engine</translation>
    </message>
    <message>
        <source>The menu runs.</source>
        <translation>Das Menü läuft.</translation>
    </message>
    <message>
        <source>The menu does not run.</source>
        <translation>Das Menü läuft nicht.</translation>
    </message>
    <message>
        <source>The menu runs, but does not answer.</source>
        <translation>Das Menü läuft, antwortet aber nicht.</translation>
    </message>
    <message>
        <source>&amp;Start the Menu</source>
        <translation>Das Menü &amp;starten</translation>
    </message>
</context>
<context>
    <name>qf::StepEditor</name>
    <message>
        <source>Cleaner of this step</source>
        <translation>Bereinigung dieses Schritts</translation>
    </message>
    <message>
        <source>C&amp;leaner</source>
        <translation>Bere&amp;inigung</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Replace by</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>Su&amp;chen</translation>
    </message>
    <message>
        <source>Replace &amp;by</source>
        <translation>E&amp;rsetzen durch</translation>
    </message>
    <message>
        <source>Regular e&amp;xpression</source>
        <translation>Regulärer Aus&amp;druck</translation>
    </message>
    <message>
        <source>&amp;Ignore capitals</source>
        <translation>Groß und klein g&amp;leich</translation>
    </message>
</context>
<context>
    <name>qf::StepFault</name>
    <message>
        <source>a parenthesis has no partner</source>
        <translation>einer runden Klammer fehlt die andere</translation>
    </message>
    <message>
        <source>a square bracket is not closed</source>
        <translation>eine eckige Klammer ist nicht geschlossen</translation>
    </message>
    <message>
        <source>a backslash stands before something it cannot</source>
        <translation>nach einem Rückstrich steht etwas, das dort nicht stehen kann</translation>
    </message>
    <message>
        <source>braces want a number, or two, in them</source>
        <translation>in geschweiften Klammern stehen eine Zahl oder zwei</translation>
    </message>
    <message>
        <source>in braces the smaller number comes first</source>
        <translation>in geschweiften Klammern kommt die kleinere Zahl zuerst</translation>
    </message>
    <message>
        <source>there is no group of that number</source>
        <translation>eine Gruppe dieser Nummer gibt es nicht</translation>
    </message>
    <message>
        <source>a range of characters runs backwards</source>
        <translation>ein Zeichenbereich läuft rückwärts</translation>
    </message>
    <message>
        <source>looking behind needs a limited length</source>
        <translation>der Blick zurück braucht eine begrenzte Länge</translation>
    </message>
    <message>
        <source>there is no such kind of characters</source>
        <translation>eine solche Art von Zeichen gibt es nicht</translation>
    </message>
    <message>
        <source>something stands where it cannot</source>
        <translation>etwas steht, wo es nicht stehen kann</translation>
    </message>
    <message>
        <source>There is nothing to find.</source>
        <translation>Es gibt nichts zu suchen.</translation>
    </message>
    <message>
        <source>The regular expression is wrong after its character number %1: %2.</source>
        <translation>Der reguläre Ausdruck ist nach seinem %1. Zeichen falsch: %2.</translation>
    </message>
</context>
<context>
    <name>qf::StepListModel</name>
    <message>
        <source>Find and replace</source>
        <translation>Suchen und ersetzen</translation>
    </message>
    <message>
        <source>Remove “%1”</source>
        <translation>„%1“ entfernen</translation>
    </message>
    <message>
        <source>Replace “%1” by “%2”</source>
        <translation>„%1“ durch „%2“ ersetzen</translation>
    </message>
    <message>
        <source>A cleaner needs at least one step.</source>
        <translation>Eine Bereinigung braucht mindestens einen Schritt.</translation>
    </message>
    <message>
        <source>Step %1: %2</source>
        <translation>Schritt %1: %2</translation>
    </message>
</context>
<context>
    <name>qf::StoredSwitch</name>
    <message>
        <source>The settings %1.plist could not be written. See that you may write in your configuration folder.</source>
        <translation>Die Einstellungen %1.plist konnten nicht geschrieben werden. Bitte prüfen, ob der Konfigurationsordner beschreibbar ist.</translation>
    </message>
</context>
<context>
    <name>qf::TrialPane</name>
    <message>
        <source>  Some   text to try,
with “quotes” — and	more.  </source>
        <translation>  Etwas   Text zum Probieren,
mit „Zitaten“ — und	mehr.  </translation>
    </message>
    <message>
        <source>Sample</source>
        <translation>Probetext</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>&amp;Try it here</source>
        <translation>Hier aus&amp;probieren</translation>
    </message>
    <message>
        <source>Left as it is: %1</source>
        <translation>Bleibt, wie er ist: %1</translation>
    </message>
</context>
</TS>
