<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the shortcut module. The names of keys are their own keys. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>KeyboardShortcuts</name>
    <message>
        <source>record_shortcut</source>
        <translation>Record Shortcut</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>Press Shortcut</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>Clear Shortcut</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>This keyboard shortcut cannot be used, because the menu item “%@” already uses it.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_disallowed</source>
        <translation>This system does not give programs shortcuts whose only modifier is Option. Add Control or Command.</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>This keyboard shortcut is already used by the desktop.</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>Most of the desktop’s shortcuts can be changed in its settings for the keyboard.</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>Use Anyway</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>Space</translation>
    </message>
</context>
</TS>
