<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>record_shortcut</source>
        <translation>キーを設定</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>キーを押す</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>ショートカットを消去</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>このキーボードショートカットはメニュー項目「%@」で使用されているため、設定できません。</translation>
    </message>
    <message>
        <source>keyboard_shortcut_disallowed</source>
        <translation>このシステムでは、修飾キーがAltだけのショートカットは使用できません。CtrlキーまたはSuperキーを加えてください。</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>このキーボードショートカットはすでにデスクトップで使用されています。</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>デスクトップのショートカットの多くは、キーボードの設定で変更できます。</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>それでも使用</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>スペース</translation>
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
        <translation>Shift</translation>
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
        <translation>Enter</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上矢印</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右矢印</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下矢印</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左矢印</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>テンキー Enter</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>テンキー 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>テンキー 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>テンキー 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>テンキー 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>テンキー 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>テンキー 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>テンキー 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>テンキー 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>テンキー 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>テンキー 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>テンキー .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>テンキー /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>テンキー =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>テンキー -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>テンキー *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>テンキー +</translation>
    </message>
</context>
</TS>
