<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message>
        <source>%@ freed</source>
        <translation>释放 %@</translation>
    </message>
    <message numerus="yes">
        <source>%lld quit</source>
        <translation>
            <numerusform>已退出 %lld 个</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld quit, %lld left</source>
        <translation>
            <numerusform>已退出 %lld 个，剩余 %lld 个</numerusform>
        </translation>
    </message>
    <message>
        <source>Asks to save</source>
        <translation>询问是否保存</translation>
    </message>
    <message>
        <source>Came back by itself</source>
        <translation>自行重新启动</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>没有响应</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>不允许</translation>
    </message>
    <message>
        <source>Quitting…</source>
        <translation>正在退出…</translation>
    </message>
    <message>
        <source>Shows its window</source>
        <translation>显示其窗口</translation>
    </message>
    <message>
        <source>Some stayed. Calmora can quit all at once and say in the list what stays and why.</source>
        <translation>有些应用没有退出。Calmora 可以同时退出所有应用，并在列表中说明哪些仍在运行及其原因。</translation>
    </message>
    <message>
        <source>Switch on</source>
        <translation>开启</translation>
    </message>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld 个应用正在运行</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld apps · %lld protected</source>
        <translation>
            <numerusform>%lld 个应用 · %lld 个受保护</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>“%@”闲置 %lld 分钟后已自动退出。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_warning %@ %lld</source>
        <translation>
            <numerusform>“%@”将在 1 分钟后自动退出：已闲置 %lld 分钟。</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>版本 %@</translation>
    </message>
    <message>
        <source>About Calmora</source>
        <translation>关于 Calmora</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>检查更新…</translation>
    </message>
    <message>
        <source>Quit Calmora</source>
        <translation>退出 Calmora</translation>
    </message>
    <message>
        <source>Show/Hide Calmora</source>
        <translation>显示/隐藏 Calmora</translation>
    </message>
    <message>
        <source>Quit All</source>
        <translation>全部退出</translation>
    </message>
    <message>
        <source>Force Quit All</source>
        <translation>全部强制退出</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>全选</translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications</source>
        <translation>
            <numerusform>退出 %lld 个应用</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>退出 %lld 个应用，其中 %lld 个被搜索隐藏</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications</source>
        <translation>
            <numerusform>强制退出 %lld 个应用</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>强制退出 %lld 个应用，其中 %lld 个被搜索隐藏</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications</source>
        <translation>
            <numerusform>选择 %lld 个应用</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>选择 %lld 个应用，其中 %lld 个被搜索隐藏</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications</source>
        <translation>
            <numerusform>取消选择 %lld 个应用</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>取消选择 %lld 个应用，其中 %lld 个被搜索隐藏</numerusform>
        </translation>
    </message>
    <message>
        <source>Running apps</source>
        <translation>正在运行的应用</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>清除搜索</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>后台</translation>
    </message>
    <message>
        <source>No apps found</source>
        <translation>未找到应用</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Force Quit</source>
        <translation>强制退出</translation>
    </message>
    <message>
        <source>Quit %@</source>
        <translation>退出 %@</translation>
    </message>
    <message>
        <source>Force Quit %@</source>
        <translation>强制退出 %@</translation>
    </message>
    <message>
        <source>This desktop does not tell which process has which of these windows, so none can be forced to quit.</source>
        <translation>此桌面不提供这些窗口各属于哪个进程，因此无法强制退出。</translation>
    </message>
    <message>
        <source>CPU %@</source>
        <translation>CPU %@</translation>
    </message>
    <message>
        <source>Memory %@</source>
        <translation>内存 %@</translation>
    </message>
    <message>
        <source>Protected</source>
        <translation>受保护</translation>
    </message>
    <message>
        <source>Never Quit This App</source>
        <translation>永不退出此应用</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>重新打开</translation>
    </message>
    <message>
        <source>Reopen %@</source>
        <translation>重新打开 %@</translation>
    </message>
    <message numerus="yes">
        <source>Reopen %lld Applications</source>
        <translation>
            <numerusform>重新打开 %lld 个应用</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit and Reopen</source>
        <translation>退出并重新打开</translation>
    </message>
    <message>
        <source>Force Quit and Reopen</source>
        <translation>强制退出并重新打开</translation>
    </message>
    <message>
        <source>Remove Protection</source>
        <translation>取消保护</translation>
    </message>
    <message>
        <source>Expanded</source>
        <translation>已展开</translation>
    </message>
    <message>
        <source>Collapsed</source>
        <translation>已折叠</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to force quit %lld selected apps?</source>
        <translation>
            <numerusform>要强制退出所选的 %lld 个应用吗？</numerusform>
        </translation>
    </message>
    <message>
        <source>You will lose any unsaved changes in these apps.</source>
        <translation>这些应用中未保存的更改将会丢失。</translation>
    </message>
    <message>
        <source>Do you want to force "%@" to quit?</source>
        <translation>要强制退出“%@”吗？</translation>
    </message>
    <message>
        <source>You will lose any unsaved changes.</source>
        <translation>未保存的更改将会丢失。</translation>
    </message>
    <message>
        <source>this app</source>
        <translation>此应用</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Calmora Settings</source>
        <translation>Calmora 设置</translation>
    </message>
    <message>
        <source>General</source>
        <translation>通用</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Open Calmora at login</source>
        <translation>登录时打开 Calmora</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>自动检查更新</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>声音</translation>
    </message>
    <message>
        <source>Play sound on quit</source>
        <translation>退出时播放声音</translation>
    </message>
    <message>
        <source>Protection</source>
        <translation>保护</translation>
    </message>
    <message>
        <source>Never quit music apps</source>
        <translation>永不退出音乐应用</translation>
    </message>
    <message>
        <source>Deselect apps by default</source>
        <translation>默认不选中应用</translation>
    </message>
    <message>
        <source>Never-Quit List</source>
        <translation>永不退出列表</translation>
    </message>
    <message>
        <source>No apps in the never-quit list. Right-click an app in the menu to protect it, or use "Add App" above.</source>
        <translation>永不退出列表为空。在菜单中右键点击应用即可保护它，也可使用上方的“添加应用”。</translation>
    </message>
    <message>
        <source>Protected Apps</source>
        <translation>受保护的应用</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>添加应用</translation>
    </message>
    <message>
        <source>Add App to Never-Quit List</source>
        <translation>将应用添加到永不退出列表</translation>
    </message>
    <message>
        <source>Remove from never-quit list</source>
        <translation>从永不退出列表中移除</translation>
    </message>
    <message>
        <source>No running apps found</source>
        <translation>未找到正在运行的应用</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>已添加</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>其他</translation>
    </message>
    <message>
        <source>Include Finder in app list</source>
        <translation>在应用列表中包含文件管理器</translation>
    </message>
    <message>
        <source>View background apps</source>
        <translation>显示后台应用</translation>
    </message>
    <message>
        <source>Group background instances</source>
        <translation>合并后台实例</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>排序方式</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>名称（A–Z）</translation>
    </message>
    <message>
        <source>CPU Usage</source>
        <translation>CPU 使用率</translation>
    </message>
    <message>
        <source>Memory Usage</source>
        <translation>内存使用量</translation>
    </message>
    <message>
        <source>Show resources</source>
        <translation>显示资源</translation>
    </message>
    <message>
        <source>CPU Only</source>
        <translation>仅 CPU</translation>
    </message>
    <message>
        <source>Memory Only</source>
        <translation>仅内存</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>两者</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Default quit mode</source>
        <translation>默认退出方式</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>强制</translation>
    </message>
    <message>
        <source>Calmora always starts with polite quitting; hold Alt in the popover to force.</source>
        <translation>Calmora 总是先以正常方式退出；在弹出窗口中按住 Alt 键可强制退出。</translation>
    </message>
    <message>
        <source>Auto Quit</source>
        <translation>自动退出</translation>
    </message>
    <message>
        <source>Auto-quit inactive apps</source>
        <translation>自动退出闲置应用</translation>
    </message>
    <message>
        <source>After</source>
        <translation>闲置时长</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5 分钟</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 分钟</translation>
    </message>
    <message>
        <source>15 minutes</source>
        <translation>15 分钟</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 分钟</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 小时</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 小时</translation>
    </message>
    <message>
        <source>4 hours</source>
        <translation>4 小时</translation>
    </message>
    <message>
        <source>8 hours</source>
        <translation>8 小时</translation>
    </message>
    <message>
        <source>Options and Forecast…</source>
        <translation>选项与预告…</translation>
    </message>
    <message>
        <source>Shall auto-quit leave alone what is in use, such as an app that plays sound, and tell you a minute before it quits an app?</source>
        <translation>自动退出是否应跳过正在使用的应用（例如正在播放声音的应用），并在退出应用前一分钟通知您？</translation>
    </message>
    <message>
        <source>Spare what is in use and warn first</source>
        <translation>跳过正在使用的应用并提前通知</translation>
    </message>
    <message>
        <source>Apps that play or record sound, keep the computer awake, are full screen, or are in front while you type are left alone. A notice says a minute before which app will be quit.</source>
        <translation>正在播放或录制声音、保持电脑唤醒、全屏显示，或在您输入时位于最前的应用不会被退出。退出前一分钟会通知您是哪个应用。</translation>
    </message>
    <message>
        <source>Quit together, show what is left, and Reopen</source>
        <translation>同时退出、显示未退出的应用并可重新打开</translation>
    </message>
    <message>
        <source>Asks all ticked apps at once, says in the list why an app has stayed, and offers to start again what was quit.</source>
        <translation>同时要求所有勾选的应用退出，在列表中说明应用未退出的原因，并可重新启动已退出的应用。</translation>
    </message>
    <message>
        <source>What auto-quit will do</source>
        <translation>自动退出的预告</translation>
    </message>
    <message>
        <source>Auto-quit is off.</source>
        <translation>自动退出已关闭。</translation>
    </message>
    <message>
        <source>Never: %@</source>
        <translation>从不：%@</translation>
    </message>
    <message>
        <source>Spared: %@</source>
        <translation>跳过：%@</translation>
    </message>
    <message>
        <source>last spared: %@</source>
        <translation>上次跳过：%@</translation>
    </message>
    <message>
        <source>Not before you use it</source>
        <translation>在您使用之前不会</translation>
    </message>
    <message>
        <source>Not while in front</source>
        <translation>位于最前时不会</translation>
    </message>
    <message>
        <source>Was asked to quit and stayed</source>
        <translation>已要求退出但仍在运行</translation>
    </message>
    <message numerus="yes">
        <source>In %lld min</source>
        <translation>
            <numerusform>%lld 分钟后</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In %lld min unless busy</source>
        <translation>
            <numerusform>%lld 分钟后（除非正忙）</numerusform>
        </translation>
    </message>
    <message>
        <source>not identified</source>
        <translation>无法识别</translation>
    </message>
    <message>
        <source>activity unknown</source>
        <translation>使用情况未知</translation>
    </message>
    <message>
        <source>the desktop leaves it no time to ask you</source>
        <translation>桌面不给它询问您的时间</translation>
    </message>
    <message>
        <source>music player</source>
        <translation>音乐播放器</translation>
    </message>
    <message>
        <source>file manager</source>
        <translation>文件管理器</translation>
    </message>
    <message>
        <source>protected</source>
        <translation>受保护</translation>
    </message>
    <message>
        <source>terminal</source>
        <translation>终端</translation>
    </message>
    <message>
        <source>needed in the background</source>
        <translation>后台需要</translation>
    </message>
    <message>
        <source>the time is too long</source>
        <translation>时间过长</translation>
    </message>
    <message>
        <source>plays sound</source>
        <translation>正在播放声音</translation>
    </message>
    <message>
        <source>records sound</source>
        <translation>正在录音</translation>
    </message>
    <message>
        <source>plays media</source>
        <translation>正在播放媒体</translation>
    </message>
    <message>
        <source>shares the screen</source>
        <translation>正在共享屏幕</translation>
    </message>
    <message>
        <source>keeps the computer awake</source>
        <translation>保持电脑唤醒</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>正忙</translation>
    </message>
    <message>
        <source>its use cannot be checked</source>
        <translation>无法检查是否在使用</translation>
    </message>
    <message>
        <source>the notice could not be shown</source>
        <translation>无法显示通知</translation>
    </message>
    <message>
        <source>Changes last until you quit Calmora: %@ cannot be used.</source>
        <translation>更改仅在退出 Calmora 之前有效：无法使用 %@。</translation>
    </message>
    <message>
        <source>Reset All Settings</source>
        <translation>重置所有设置</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>全局快捷键</translation>
    </message>
    <message>
        <source>Show/Hide Calmora:</source>
        <translation>显示/隐藏 Calmora：</translation>
    </message>
    <message>
        <source>Quit all:</source>
        <translation>全部退出：</translation>
    </message>
    <message>
        <source>Force quit all:</source>
        <translation>全部强制退出：</translation>
    </message>
    <message>
        <source>Shortcuts work from any application.</source>
        <translation>快捷键在任何应用中都有效。</translation>
    </message>
    <message>
        <source>Shortcuts work from any application. Keys for accents and those of the numeric keypad cannot be used here.</source>
        <translation>快捷键在任何应用中都有效。此处不能使用重音符号键和数字小键盘上的键。</translation>
    </message>
    <message>
        <source>This desktop does not tell which applications run, so only X11 ones are listed.</source>
        <translation>此桌面不提供正在运行的应用，因此仅列出 X11 应用。</translation>
    </message>
    <message>
        <source>This desktop ends Wayland applications that take longer than 2 seconds to answer, so only X11 applications are quit automatically.</source>
        <translation>此桌面会结束超过 2 秒未响应的 Wayland 应用，因此仅自动退出 X11 应用。</translation>
    </message>
    <message>
        <source>Calmora needs its extension for GNOME to see all apps, to ask them to quit, and to put its icon into the top bar.</source>
        <translation>Calmora 需要其 GNOME 扩展才能看到所有应用、请求它们退出，并在顶栏显示图标。</translation>
    </message>
    <message>
        <source>Its extension for GNOME puts Calmora’s icon into the top bar.</source>
        <translation>GNOME 扩展会在顶栏显示 Calmora 的图标。</translation>
    </message>
    <message>
        <source>Log out and in once so that GNOME finds Calmora’s extension.</source>
        <translation>请注销并重新登录一次，以便 GNOME 找到 Calmora 的扩展。</translation>
    </message>
    <message>
        <source>Extensions of GNOME are switched off on this system.</source>
        <translation>此系统已关闭 GNOME 扩展。</translation>
    </message>
    <message>
        <source>The extension for GNOME is switched on.</source>
        <translation>GNOME 扩展已启用。</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>以后再说</translation>
    </message>
    <message>
        <source>GNOME</source>
        <translation>GNOME</translation>
    </message>
    <message>
        <source>Shortcuts wait for the GNOME extension to be switched on again.</source>
        <translation>快捷键将在 GNOME 扩展重新启用后生效。</translation>
    </message>
    <message>
        <source>Without the GNOME extension, Calmora sees no Wayland windows. Some apps are missing, and some can only be force quit.</source>
        <translation>没有 GNOME 扩展，Calmora 看不到 Wayland 窗口。有些应用不会列出，有些只能强制退出。</translation>
    </message>
    <message>
        <source>Key on this desktop: %@</source>
        <translation>此桌面上的按键：%@</translation>
    </message>
    <message>
        <source>The desktop has assigned no key.</source>
        <translation>桌面未分配按键。</translation>
    </message>
    <message>
        <source>The desktop assigns the keys; what is recorded here is a proposal.</source>
        <translation>按键由桌面分配；此处录制的只是建议。</translation>
    </message>
    <message>
        <source>Record a shortcut, copy its line into the configuration of sway, and reload that.</source>
        <translation>录制快捷键，将其对应的行复制到 sway 的配置中，然后重新加载配置。</translation>
    </message>
    <message>
        <source>This desktop does not let programs choose shortcuts. Bind these commands to keys in its settings or its configuration.</source>
        <translation>此桌面不允许程序选择快捷键。请在其设置或配置文件中为这些命令绑定按键。</translation>
    </message>
    <message>
        <source>Shortcuts are not available, because there is no X server.</source>
        <translation>没有 X 服务器，因此快捷键不可用。</translation>
    </message>
    <message>
        <source>Quits your applications. Spares your work.</source>
        <translation>退出应用，不伤工作。</translation>
    </message>
    <message>
        <source>update_available_text %@</source>
        <translation>您正在使用版本 %@。</translation>
    </message>
    <message>
        <source>update_available_title %@</source>
        <translation>版本 %@ 已可用。</translation>
    </message>
    <message>
        <source>update_checking</source>
        <translation>正在检查更新…</translation>
    </message>
    <message>
        <source>update_current_text %@</source>
        <translation>版本 %@ 是最新版本。</translation>
    </message>
    <message>
        <source>update_current_title</source>
        <translation>Calmora 已是最新版本。</translation>
    </message>
    <message>
        <source>update_error_address</source>
        <translation>此版本内置的地址无法用于更新。</translation>
    </message>
    <message>
        <source>update_error_insecure</source>
        <translation>与服务器的连接不安全，因此未读取任何内容。</translation>
    </message>
    <message>
        <source>update_error_loader</source>
        <translation>Calmora 的联网组件缺失。重新安装 Calmora 应可解决此问题。</translation>
    </message>
    <message>
        <source>update_error_redirect</source>
        <translation>服务器将 Calmora 转到了不受信任的地址。</translation>
    </message>
    <message>
        <source>update_error_refused</source>
        <translation>服务器未提供版本列表。</translation>
    </message>
    <message>
        <source>update_error_timeout</source>
        <translation>服务器响应时间过长。请稍后重试。</translation>
    </message>
    <message>
        <source>update_error_too_large</source>
        <translation>版本列表超出了应有的大小。</translation>
    </message>
    <message>
        <source>update_error_unreachable</source>
        <translation>无法连接到服务器。请检查网络连接后重试。</translation>
    </message>
    <message>
        <source>update_error_unreadable</source>
        <translation>版本列表已损坏或包含不应有的内容。</translation>
    </message>
    <message>
        <source>update_error_version</source>
        <translation>版本列表中包含无效的版本号。</translation>
    </message>
    <message>
        <source>update_failed_title</source>
        <translation>Calmora 无法检查更新。</translation>
    </message>
    <message>
        <source>update_notification_text</source>
        <translation>要了解新内容，请在 Calmora 的菜单中选择“检查更新…”。</translation>
    </message>
    <message>
        <source>update_open_page</source>
        <translation>打开网页</translation>
    </message>
    <message>
        <source>update_packaged</source>
        <translation>更新随系统软件包提供。</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
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
        <source>Menu</source>
        <translation>菜单</translation>
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
