<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>record_shortcut</source>
        <translation>录制快捷键</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>按下快捷键</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>清除快捷键</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>无法使用此快捷键，因为菜单项“%@”已在使用。</translation>
    </message>
    <message>
        <source>keyboard_shortcut_disallowed</source>
        <translation>此系统不允许程序使用仅以 Alt 为修饰键的快捷键。请加上 Ctrl 或 Super。</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>桌面环境已在使用此快捷键。</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>桌面环境的大多数快捷键可以在其键盘设置中更改。</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>好</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>仍然使用</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>空格</translation>
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
        <translation>回车</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>退格</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
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
        <translation>插入</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>上翻页</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>下翻页</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上箭头</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右箭头</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下箭头</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左箭头</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>小键盘回车</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>小键盘 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>小键盘 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>小键盘 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>小键盘 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>小键盘 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>小键盘 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>小键盘 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>小键盘 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>小键盘 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>小键盘 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>小键盘 .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>小键盘 /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>小键盘 =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>小键盘 -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>小键盘 *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>小键盘 +</translation>
    </message>
</context>
</TS>
