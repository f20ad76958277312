<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Only what the key does not say by itself: symbolic keys, plural forms, other words. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message numerus="yes">
        <source>%lld quit</source>
        <translation>
            <numerusform>%lld quit</numerusform>
            <numerusform>%lld quit</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld quit, %lld left</source>
        <translation>
            <numerusform>%lld quit, %lld left</numerusform>
            <numerusform>%lld quit, %lld left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld app running</numerusform>
            <numerusform>%lld apps running</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>%@ was quit after %lld minute without use.</numerusform>
            <numerusform>%@ was quit after %lld minutes without use.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_warning %@ %lld</source>
        <translation>
            <numerusform>%@ will be quit in 1 minute: %lld minute without use.</numerusform>
            <numerusform>%@ will be quit in 1 minute: %lld minutes without use.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reopen %lld Applications</source>
        <translation>
            <numerusform>Reopen %lld Application</numerusform>
            <numerusform>Reopen %lld Applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications</source>
        <translation>
            <numerusform>Quits %lld application</numerusform>
            <numerusform>Quits %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Quits %lld application, hidden by the search (%lld)</numerusform>
            <numerusform>Quits %lld applications, %lld of them hidden by the search</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications</source>
        <translation>
            <numerusform>Force quits %lld application</numerusform>
            <numerusform>Force quits %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Force quits %lld application, hidden by the search (%lld)</numerusform>
            <numerusform>Force quits %lld applications, %lld of them hidden by the search</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications</source>
        <translation>
            <numerusform>Selects %lld application</numerusform>
            <numerusform>Selects %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Selects %lld application, hidden by the search (%lld)</numerusform>
            <numerusform>Selects %lld applications, %lld of them hidden by the search</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications</source>
        <translation>
            <numerusform>Deselects %lld application</numerusform>
            <numerusform>Deselects %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Deselects %lld application, hidden by the search (%lld)</numerusform>
            <numerusform>Deselects %lld applications, %lld of them hidden by the search</numerusform>
        </translation>
    </message>
    <message>
        <source>update_available_text %@</source>
        <translation>You have version %@.</translation>
    </message>
    <message>
        <source>update_available_title %@</source>
        <translation>Version %@ is available.</translation>
    </message>
    <message>
        <source>update_checking</source>
        <translation>Looking for updates…</translation>
    </message>
    <message>
        <source>update_current_text %@</source>
        <translation>Version %@ is the newest one.</translation>
    </message>
    <message>
        <source>update_current_title</source>
        <translation>Calmora is up to date.</translation>
    </message>
    <message>
        <source>update_error_address</source>
        <translation>The address that this version was built with cannot be used for updates.</translation>
    </message>
    <message>
        <source>update_error_insecure</source>
        <translation>The connection to the server is not secure, so nothing was read from it.</translation>
    </message>
    <message>
        <source>update_error_loader</source>
        <translation>The part of Calmora that reaches the network is missing. Installing Calmora again should help.</translation>
    </message>
    <message>
        <source>update_error_redirect</source>
        <translation>The server sent Calmora on to an address that it does not trust.</translation>
    </message>
    <message>
        <source>update_error_refused</source>
        <translation>The server did not hand out the list of releases.</translation>
    </message>
    <message>
        <source>update_error_timeout</source>
        <translation>The server took too long to answer. Try again later.</translation>
    </message>
    <message>
        <source>update_error_too_large</source>
        <translation>The list of releases is larger than such a list can be.</translation>
    </message>
    <message>
        <source>update_error_unreachable</source>
        <translation>The server cannot be reached. Check the network connection and try again.</translation>
    </message>
    <message>
        <source>update_error_unreadable</source>
        <translation>The list of releases is damaged or holds what does not belong in it.</translation>
    </message>
    <message>
        <source>update_error_version</source>
        <translation>The list of releases names a version that is none.</translation>
    </message>
    <message>
        <source>update_failed_title</source>
        <translation>Calmora could not look for updates.</translation>
    </message>
    <message>
        <source>update_notification_text</source>
        <translation>Choose “Check for Updates…” in Calmora’s menu to read what is new.</translation>
    </message>
    <message>
        <source>update_open_page</source>
        <translation>Open Web Page</translation>
    </message>
    <message>
        <source>update_packaged</source>
        <translation>Updates come with your system’s packages.</translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>Version %@</translation>
    </message>
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
    <message>
        <source>Include Finder in app list</source>
        <translation>Include file manager in app list</translation>
    </message>
</context>
</TS>
