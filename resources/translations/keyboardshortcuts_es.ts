<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>record_shortcut</source>
        <translation>Grabar atajo</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>Pulse el atajo</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>Borrar atajo</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>Este atajo de teclado no se puede usar porque ya lo utiliza el elemento de menú «%@».</translation>
    </message>
    <message>
        <source>keyboard_shortcut_disallowed</source>
        <translation>Este sistema no concede a los programas atajos cuyo único modificador sea Alt. Añada Ctrl o Super.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>Este atajo de teclado ya lo utiliza el escritorio.</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>La mayoría de los atajos del escritorio se pueden cambiar en su configuración del teclado.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>Usar de todos modos</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayús</translation>
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
        <translation>Intro</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retroceso</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supr</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Fin</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Escape</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insertar</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tabulador</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Re Pág</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Av Pág</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Flecha arriba</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Flecha derecha</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Flecha abajo</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Flecha izquierda</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Bloq Num</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Teclado numérico Intro</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>Teclado numérico 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>Teclado numérico 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>Teclado numérico 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>Teclado numérico 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>Teclado numérico 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>Teclado numérico 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>Teclado numérico 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>Teclado numérico 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>Teclado numérico 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>Teclado numérico 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>Teclado numérico .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>Teclado numérico /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>Teclado numérico =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>Teclado numérico -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>Teclado numérico *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>Teclado numérico +</translation>
    </message>
</context>
</TS>
