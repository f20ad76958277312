<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>record_shortcut</source>
        <translation>Définir…</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>Appuyez…</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>Effacer le raccourci</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>Ce raccourci clavier ne peut pas être utilisé, car l’élément de menu « %@ » l’utilise déjà.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_disallowed</source>
        <translation>Ce système n’accorde pas aux programmes de raccourcis dont la seule touche de modification est Alt. Ajoutez Ctrl ou Super.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>Ce raccourci clavier est déjà utilisé par l’environnement de bureau.</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>La plupart des raccourcis du bureau peuvent être modifiés dans ses paramètres de clavier.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>Utiliser quand même</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
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
        <translation>Entrée</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Suppr</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Échap</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Inser</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Origine</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page précédente</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page suivante</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Flèche haut</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Flèche droite</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Flèche bas</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Flèche gauche</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Verr. num.</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Pavé numérique Entrée</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>Pavé numérique 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>Pavé numérique 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>Pavé numérique 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>Pavé numérique 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>Pavé numérique 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>Pavé numérique 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>Pavé numérique 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>Pavé numérique 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>Pavé numérique 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>Pavé numérique 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>Pavé numérique .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>Pavé numérique /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>Pavé numérique =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>Pavé numérique -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>Pavé numérique *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>Pavé numérique +</translation>
    </message>
</context>
</TS>
