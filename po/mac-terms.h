// Words that the Mac has another translation for than Linux desktops; read by po/update alone. The Mac takes the translation
// with this context where there is one: an entry here, and the same text where it is used.
//
// TRANSLATORS: on a Mac this replaces the translation of the same text without the context, which is for Linux desktops;
// take the words of macOS itself. Leave the same words in where they do not differ.
markc("Mac", "Recent Items");
markc("Mac", "Recent Applications");
markc("Mac", "Recent Documents");
markc("Mac", "Recent Folders");
markc("Mac", "Recent Servers");
markc("Mac", "System Settings");
markc("Mac", "System Settings…");
markc("Mac", "Software Update…");
markc("Mac", "Force Quit");
markc("Mac", "Force Quit…");
markc("Mac", "Lock Screen");
markc("Mac", "Log Out…");
markc("Mac", "Restart…");
markc("Mac", "Shut Down…");
markc("Mac|command", "Sleep");
markc("Mac|command, at once", "Log Out");
markc("Mac|command, at once", "Restart");
markc("Mac|command, at once", "Shut Down");
markc("Mac|button", "Log Out");
markc("Mac|button", "Restart");
markc("Mac|button", "Shut Down");
markc("Mac", "Open With");
markc("Mac", "Quit Zanthe Vell");
markc("Mac|another application", "Quit");
