<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>record_shortcut</source>
        <translation>Kürzel aufnehmen</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>Kürzel drücken</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>Kürzel löschen</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>Dieses Tastenkürzel kann nicht verwendet werden, weil es bereits zum Menüpunkt „%@“ gehört.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_disallowed</source>
        <translation>Dieses System überlässt Programmen keine Tastenkürzel, deren einzige Zusatztaste Alt ist. Nehmen Sie Strg oder Super hinzu.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>Dieses Tastenkürzel wird bereits von der Arbeitsumgebung verwendet.</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>Die meisten Tastenkürzel der Arbeitsumgebung lassen sich in deren Tastatureinstellungen ändern.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>Trotzdem verwenden</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Fn</source>
        <translation>Fn</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Pfeil nach oben</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Pfeil nach rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Pfeil nach unten</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Pfeil nach links</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Ziffernblock Eingabe</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>Ziffernblock 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>Ziffernblock 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>Ziffernblock 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>Ziffernblock 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>Ziffernblock 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>Ziffernblock 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>Ziffernblock 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>Ziffernblock 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>Ziffernblock 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>Ziffernblock 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>Ziffernblock .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>Ziffernblock /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>Ziffernblock =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>Ziffernblock -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>Ziffernblock *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>Ziffernblock +</translation>
    </message>
</context>
</TS>
