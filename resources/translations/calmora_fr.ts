<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message>
        <source>%@ freed</source>
        <translation>%@ libérés</translation>
    </message>
    <message numerus="yes">
        <source>%lld quit</source>
        <translation>
            <numerusform>%lld fermée</numerusform>
            <numerusform>%lld fermées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld quit, %lld left</source>
        <translation>
            <numerusform>%lld fermée, reste %lld</numerusform>
            <numerusform>%lld fermées, reste %lld</numerusform>
        </translation>
    </message>
    <message>
        <source>Asks to save</source>
        <translation>Demande d’enregistrer</translation>
    </message>
    <message>
        <source>Came back by itself</source>
        <translation>S’est relancée seule</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>Ne répond pas</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Non autorisé</translation>
    </message>
    <message>
        <source>Quitting…</source>
        <translation>Fermeture…</translation>
    </message>
    <message>
        <source>Shows its window</source>
        <translation>Affiche sa fenêtre</translation>
    </message>
    <message>
        <source>Some stayed. Calmora can quit all at once and say in the list what stays and why.</source>
        <translation>Certaines sont restées. Calmora peut tout fermer en même temps et dire dans la liste ce qui reste et pourquoi.</translation>
    </message>
    <message>
        <source>Switch on</source>
        <translation>Activer</translation>
    </message>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld application ouverte</numerusform>
            <numerusform>%lld applications ouvertes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld apps · %lld protected</source>
        <translation>
            <numerusform>%lld application · %lld sous protection</numerusform>
            <numerusform>%lld applications · %lld sous protection</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>L’application %@ a été fermée après %lld minute d’inactivité.</numerusform>
            <numerusform>L’application %@ a été fermée après %lld minutes d’inactivité.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_warning %@ %lld</source>
        <translation>
            <numerusform>L’application %@ sera fermée dans 1 minute : %lld minute d’inactivité.</numerusform>
            <numerusform>L’application %@ sera fermée dans 1 minute : %lld minutes d’inactivité.</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Ne pas fermer</translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>Version %@</translation>
    </message>
    <message>
        <source>About Calmora</source>
        <translation>À propos de Calmora</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher des mises à jour…</translation>
    </message>
    <message>
        <source>Quit Calmora</source>
        <translation>Quitter Calmora</translation>
    </message>
    <message>
        <source>Show/Hide Calmora</source>
        <translation>Afficher/masquer Calmora</translation>
    </message>
    <message>
        <source>Quit All</source>
        <translation>Tout quitter</translation>
    </message>
    <message>
        <source>Force Quit All</source>
        <translation>Forcer à tout quitter</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications</source>
        <translation>
            <numerusform>Quitte %lld application</numerusform>
            <numerusform>Quitte %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Quitte %lld application, masquée par la recherche (%lld)</numerusform>
            <numerusform>Quitte %lld applications, dont %lld masquées par la recherche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications</source>
        <translation>
            <numerusform>Force %lld application à quitter</numerusform>
            <numerusform>Force %lld applications à quitter</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Force %lld application à quitter, masquée par la recherche (%lld)</numerusform>
            <numerusform>Force %lld applications à quitter, dont %lld masquées par la recherche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications</source>
        <translation>
            <numerusform>Sélectionne %lld application</numerusform>
            <numerusform>Sélectionne %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Sélectionne %lld application, masquée par la recherche (%lld)</numerusform>
            <numerusform>Sélectionne %lld applications, dont %lld masquées par la recherche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications</source>
        <translation>
            <numerusform>Désélectionne %lld application</numerusform>
            <numerusform>Désélectionne %lld applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>Désélectionne %lld application, masquée par la recherche (%lld)</numerusform>
            <numerusform>Désélectionne %lld applications, dont %lld masquées par la recherche</numerusform>
        </translation>
    </message>
    <message>
        <source>Running apps</source>
        <translation>Applications ouvertes</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>En arrière-plan</translation>
    </message>
    <message>
        <source>No apps found</source>
        <translation>Aucune application trouvée</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Force Quit</source>
        <translation>Forcer à quitter</translation>
    </message>
    <message>
        <source>Quit %@</source>
        <translation>Quitter %@</translation>
    </message>
    <message>
        <source>Force Quit %@</source>
        <translation>Forcer %@ à quitter</translation>
    </message>
    <message>
        <source>This desktop does not tell which process has which of these windows, so none can be forced to quit.</source>
        <translation>Ce bureau n’indique pas à quel processus appartient chacune de ces fenêtres, donc aucun ne peut être forcé à quitter.</translation>
    </message>
    <message>
        <source>CPU %@</source>
        <translation>Processeur %@</translation>
    </message>
    <message>
        <source>Memory %@</source>
        <translation>Mémoire %@</translation>
    </message>
    <message>
        <source>Protected</source>
        <translation>Protégée</translation>
    </message>
    <message>
        <source>Never Quit This App</source>
        <translation>Ne jamais quitter cette application</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>Rouvrir</translation>
    </message>
    <message>
        <source>Reopen %@</source>
        <translation>Rouvrir %@</translation>
    </message>
    <message numerus="yes">
        <source>Reopen %lld Applications</source>
        <translation>
            <numerusform>Rouvrir %lld application</numerusform>
            <numerusform>Rouvrir %lld applications</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit and Reopen</source>
        <translation>Quitter et rouvrir</translation>
    </message>
    <message>
        <source>Force Quit and Reopen</source>
        <translation>Forcer à quitter et rouvrir</translation>
    </message>
    <message>
        <source>Remove Protection</source>
        <translation>Retirer la protection</translation>
    </message>
    <message>
        <source>Expanded</source>
        <translation>Développé</translation>
    </message>
    <message>
        <source>Collapsed</source>
        <translation>Réduit</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to force quit %lld selected apps?</source>
        <translation>
            <numerusform>Voulez-vous forcer %lld application sélectionnée à quitter ?</numerusform>
            <numerusform>Voulez-vous forcer %lld applications sélectionnées à quitter ?</numerusform>
        </translation>
    </message>
    <message>
        <source>You will lose any unsaved changes in these apps.</source>
        <translation>Les modifications non enregistrées dans ces applications seront perdues.</translation>
    </message>
    <message>
        <source>Do you want to force "%@" to quit?</source>
        <translation>Voulez-vous forcer « %@ » à quitter ?</translation>
    </message>
    <message>
        <source>You will lose any unsaved changes.</source>
        <translation>Les modifications non enregistrées seront perdues.</translation>
    </message>
    <message>
        <source>this app</source>
        <translation>cette application</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Calmora Settings</source>
        <translation>Paramètres de Calmora</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Raccourcis</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Open Calmora at login</source>
        <translation>Ouvrir Calmora à l’ouverture de session</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>Rechercher automatiquement les mises à jour</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>Sons</translation>
    </message>
    <message>
        <source>Play sound on quit</source>
        <translation>Émettre un son à la fermeture</translation>
    </message>
    <message>
        <source>Protection</source>
        <translation>Protection</translation>
    </message>
    <message>
        <source>Never quit music apps</source>
        <translation>Ne jamais quitter les applications de musique</translation>
    </message>
    <message>
        <source>Deselect apps by default</source>
        <translation>Ne pas sélectionner les applications par défaut</translation>
    </message>
    <message>
        <source>Never-Quit List</source>
        <translation>À ne jamais quitter</translation>
    </message>
    <message>
        <source>No apps in the never-quit list. Right-click an app in the menu to protect it, or use "Add App" above.</source>
        <translation>La liste « À ne jamais quitter » est vide. Cliquez avec le bouton droit sur une application du menu pour la protéger, ou utilisez « Ajouter une application » ci-dessus.</translation>
    </message>
    <message>
        <source>Protected Apps</source>
        <translation>Applications protégées</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>Add App to Never-Quit List</source>
        <translation>Ajouter à « À ne jamais quitter »</translation>
    </message>
    <message>
        <source>Remove from never-quit list</source>
        <translation>Retirer de « À ne jamais quitter »</translation>
    </message>
    <message>
        <source>No running apps found</source>
        <translation>Aucune application en cours d’exécution</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Ajoutée</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Inconnue</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>Options supplémentaires</translation>
    </message>
    <message>
        <source>Include Finder in app list</source>
        <translation>Inclure le gestionnaire de fichiers dans la liste</translation>
    </message>
    <message>
        <source>View background apps</source>
        <translation>Afficher les applications en arrière-plan</translation>
    </message>
    <message>
        <source>Group background instances</source>
        <translation>Regrouper les instances en arrière-plan</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Trier par</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nom (A–Z)</translation>
    </message>
    <message>
        <source>CPU Usage</source>
        <translation>Utilisation du processeur</translation>
    </message>
    <message>
        <source>Memory Usage</source>
        <translation>Utilisation de la mémoire</translation>
    </message>
    <message>
        <source>Show resources</source>
        <translation>Afficher les ressources</translation>
    </message>
    <message>
        <source>CPU Only</source>
        <translation>Processeur seulement</translation>
    </message>
    <message>
        <source>Memory Only</source>
        <translation>Mémoire seulement</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Les deux</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>Default quit mode</source>
        <translation>Mode de fermeture par défaut</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Forcé</translation>
    </message>
    <message>
        <source>Calmora always starts with polite quitting; hold Alt in the popover to force.</source>
        <translation>Calmora commence toujours par une fermeture normale ; maintenez Alt dans la fenêtre de la barre d’état pour forcer à quitter.</translation>
    </message>
    <message>
        <source>Auto Quit</source>
        <translation>Fermeture automatique</translation>
    </message>
    <message>
        <source>Auto-quit inactive apps</source>
        <translation>Quitter automatiquement les applications inactives</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Après</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5 minutes</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10 minutes</translation>
    </message>
    <message>
        <source>15 minutes</source>
        <translation>15 minutes</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30 minutes</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 heure</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 heures</translation>
    </message>
    <message>
        <source>4 hours</source>
        <translation>4 heures</translation>
    </message>
    <message>
        <source>8 hours</source>
        <translation>8 heures</translation>
    </message>
    <message>
        <source>Options and Forecast…</source>
        <translation>Options et prévisions…</translation>
    </message>
    <message>
        <source>Shall auto-quit leave alone what is in use, such as an app that plays sound, and tell you a minute before it quits an app?</source>
        <translation>La fermeture automatique doit-elle épargner ce qui est utilisé, comme une application qui joue du son, et vous prévenir une minute avant de fermer une application ?</translation>
    </message>
    <message>
        <source>Spare what is in use and warn first</source>
        <translation>Épargner ce qui est utilisé et prévenir avant</translation>
    </message>
    <message>
        <source>Apps that play or record sound, keep the computer awake, are full screen, or are in front while you type are left alone. A notice says a minute before which app will be quit.</source>
        <translation>Les applications qui jouent ou enregistrent du son, qui gardent l’ordinateur éveillé, qui sont en plein écran ou au premier plan pendant que vous tapez sont épargnées. Un avis indique une minute avant quelle application sera fermée.</translation>
    </message>
    <message>
        <source>Quit together, show what is left, and Reopen</source>
        <translation>Quitter ensemble, montrer ce qui reste et rouvrir</translation>
    </message>
    <message>
        <source>Asks all ticked apps at once, says in the list why an app has stayed, and offers to start again what was quit.</source>
        <translation>Demande à toutes les applications cochées à la fois, dit dans la liste pourquoi une application est restée et propose de relancer ce qui a été quitté.</translation>
    </message>
    <message>
        <source>What auto-quit will do</source>
        <translation>Ce que fera la fermeture automatique</translation>
    </message>
    <message>
        <source>Auto-quit is off.</source>
        <translation>La fermeture automatique est désactivée.</translation>
    </message>
    <message>
        <source>Never: %@</source>
        <translation>Jamais : %@</translation>
    </message>
    <message>
        <source>Spared: %@</source>
        <translation>Épargnée : %@</translation>
    </message>
    <message>
        <source>last spared: %@</source>
        <translation>épargnée la dernière fois : %@</translation>
    </message>
    <message>
        <source>Not before you use it</source>
        <translation>Pas avant que vous ne l’utilisiez</translation>
    </message>
    <message>
        <source>Not while in front</source>
        <translation>Pas tant qu’elle est au premier plan</translation>
    </message>
    <message>
        <source>Was asked to quit and stayed</source>
        <translation>On lui a demandé de quitter et elle est restée</translation>
    </message>
    <message numerus="yes">
        <source>In %lld min</source>
        <translation>
            <numerusform>Dans %lld min</numerusform>
            <numerusform>Dans %lld min</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In %lld min unless busy</source>
        <translation>
            <numerusform>Dans %lld min, sauf si elle est occupée</numerusform>
            <numerusform>Dans %lld min, sauf si elle est occupée</numerusform>
        </translation>
    </message>
    <message>
        <source>not identified</source>
        <translation>non identifiée</translation>
    </message>
    <message>
        <source>activity unknown</source>
        <translation>activité inconnue</translation>
    </message>
    <message>
        <source>the desktop leaves it no time to ask you</source>
        <translation>le bureau ne lui laisse pas le temps de vous interroger</translation>
    </message>
    <message>
        <source>music player</source>
        <translation>lecteur de musique</translation>
    </message>
    <message>
        <source>file manager</source>
        <translation>gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>protected</source>
        <translation>protégée</translation>
    </message>
    <message>
        <source>terminal</source>
        <translation>terminal</translation>
    </message>
    <message>
        <source>needed in the background</source>
        <translation>utile en arrière-plan</translation>
    </message>
    <message>
        <source>the time is too long</source>
        <translation>la durée est trop longue</translation>
    </message>
    <message>
        <source>plays sound</source>
        <translation>joue du son</translation>
    </message>
    <message>
        <source>records sound</source>
        <translation>enregistre du son</translation>
    </message>
    <message>
        <source>plays media</source>
        <translation>lit un média</translation>
    </message>
    <message>
        <source>shares the screen</source>
        <translation>partage l’écran</translation>
    </message>
    <message>
        <source>keeps the computer awake</source>
        <translation>garde l’ordinateur éveillé</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>plein écran</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>occupée</translation>
    </message>
    <message>
        <source>its use cannot be checked</source>
        <translation>son usage ne peut être vérifié</translation>
    </message>
    <message>
        <source>the notice could not be shown</source>
        <translation>l’avis n’a pas pu être affiché</translation>
    </message>
    <message>
        <source>Changes last until you quit Calmora: %@ cannot be used.</source>
        <translation>Les modifications durent jusqu’à ce que vous quittiez Calmora : impossible d’utiliser %@.</translation>
    </message>
    <message>
        <source>Reset All Settings</source>
        <translation>Réinitialiser tous les paramètres</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>Raccourcis globaux</translation>
    </message>
    <message>
        <source>Show/Hide Calmora:</source>
        <translation>Afficher/masquer Calmora :</translation>
    </message>
    <message>
        <source>Quit all:</source>
        <translation>Tout quitter :</translation>
    </message>
    <message>
        <source>Force quit all:</source>
        <translation>Forcer à tout quitter :</translation>
    </message>
    <message>
        <source>Shortcuts work from any application.</source>
        <translation>Les raccourcis fonctionnent dans toutes les applications.</translation>
    </message>
    <message>
        <source>Shortcuts work from any application. Keys for accents and those of the numeric keypad cannot be used here.</source>
        <translation>Les raccourcis fonctionnent dans toutes les applications. Les touches d’accent et celles du pavé numérique ne sont pas utilisables ici.</translation>
    </message>
    <message>
        <source>This desktop does not tell which applications run, so only X11 ones are listed.</source>
        <translation>Ce bureau n’indique pas quelles applications sont ouvertes, donc seules celles de X11 sont affichées.</translation>
    </message>
    <message>
        <source>This desktop ends Wayland applications that take longer than 2 seconds to answer, so only X11 applications are quit automatically.</source>
        <translation>Ce bureau met fin aux applications Wayland qui mettent plus de 2 secondes à répondre, donc seules les applications X11 sont quittées automatiquement.</translation>
    </message>
    <message>
        <source>Calmora needs its extension for GNOME to see all apps, to ask them to quit, and to put its icon into the top bar.</source>
        <translation>Calmora a besoin de son extension pour GNOME pour voir toutes les applications, leur demander de quitter et placer son icône dans la barre supérieure.</translation>
    </message>
    <message>
        <source>Its extension for GNOME puts Calmora’s icon into the top bar.</source>
        <translation>L’extension pour GNOME place l’icône de Calmora dans la barre supérieure.</translation>
    </message>
    <message>
        <source>Log out and in once so that GNOME finds Calmora’s extension.</source>
        <translation>Fermez puis rouvrez la session une fois pour que GNOME trouve l’extension de Calmora.</translation>
    </message>
    <message>
        <source>Extensions of GNOME are switched off on this system.</source>
        <translation>Les extensions de GNOME sont désactivées sur ce système.</translation>
    </message>
    <message>
        <source>The extension for GNOME is switched on.</source>
        <translation>L’extension pour GNOME est activée.</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Activer</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>GNOME</source>
        <translation>GNOME</translation>
    </message>
    <message>
        <source>Shortcuts wait for the GNOME extension to be switched on again.</source>
        <translation>Les raccourcis attendent que l’extension pour GNOME soit réactivée.</translation>
    </message>
    <message>
        <source>Without the GNOME extension, Calmora sees no Wayland windows. Some apps are missing, and some can only be force quit.</source>
        <translation>Sans l’extension pour GNOME, Calmora ne voit pas les fenêtres Wayland. Certaines applications manquent, d’autres ne quittent que si on les y force.</translation>
    </message>
    <message>
        <source>Key on this desktop: %@</source>
        <translation>Touche sur ce bureau : %@</translation>
    </message>
    <message>
        <source>The desktop has assigned no key.</source>
        <translation>Le bureau n’a attribué aucune touche.</translation>
    </message>
    <message>
        <source>The desktop assigns the keys; what is recorded here is a proposal.</source>
        <translation>Le bureau attribue les touches ; ce qui est défini ici est une proposition.</translation>
    </message>
    <message>
        <source>Record a shortcut, copy its line into the configuration of sway, and reload that.</source>
        <translation>Définissez un raccourci, copiez sa ligne dans la configuration de sway, puis rechargez-la.</translation>
    </message>
    <message>
        <source>This desktop does not let programs choose shortcuts. Bind these commands to keys in its settings or its configuration.</source>
        <translation>Ce bureau ne laisse pas les programmes choisir de raccourcis. Associez ces commandes à des touches dans ses paramètres ou sa configuration.</translation>
    </message>
    <message>
        <source>Shortcuts are not available, because there is no X server.</source>
        <translation>Les raccourcis ne sont pas disponibles, car il n’y a pas de serveur X.</translation>
    </message>
    <message>
        <source>Quits your applications. Spares your work.</source>
        <translation>Quitte vos applications. Épargne votre travail.</translation>
    </message>
    <message>
        <source>update_available_text %@</source>
        <translation>Vous utilisez la version %@.</translation>
    </message>
    <message>
        <source>update_available_title %@</source>
        <translation>La version %@ est disponible.</translation>
    </message>
    <message>
        <source>update_checking</source>
        <translation>Recherche de mises à jour…</translation>
    </message>
    <message>
        <source>update_current_text %@</source>
        <translation>La version %@ est la plus récente.</translation>
    </message>
    <message>
        <source>update_current_title</source>
        <translation>Calmora est à jour.</translation>
    </message>
    <message>
        <source>update_error_address</source>
        <translation>L’adresse prévue dans cette version ne peut pas servir aux mises à jour.</translation>
    </message>
    <message>
        <source>update_error_insecure</source>
        <translation>La connexion au serveur n’est pas sûre ; rien n’en a donc été lu.</translation>
    </message>
    <message>
        <source>update_error_loader</source>
        <translation>La partie de Calmora qui accède au réseau est absente. Réinstaller Calmora devrait résoudre le problème.</translation>
    </message>
    <message>
        <source>update_error_redirect</source>
        <translation>Le serveur a renvoyé Calmora vers une adresse qui n’est pas de confiance.</translation>
    </message>
    <message>
        <source>update_error_refused</source>
        <translation>Le serveur n’a pas fourni la liste des versions.</translation>
    </message>
    <message>
        <source>update_error_timeout</source>
        <translation>Le serveur a mis trop de temps à répondre. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>update_error_too_large</source>
        <translation>La liste des versions est plus longue qu’une telle liste ne peut l’être.</translation>
    </message>
    <message>
        <source>update_error_unreachable</source>
        <translation>Le serveur est injoignable. Vérifiez la connexion réseau et réessayez.</translation>
    </message>
    <message>
        <source>update_error_unreadable</source>
        <translation>La liste des versions est endommagée ou contient des éléments qui n’ont rien à y faire.</translation>
    </message>
    <message>
        <source>update_error_version</source>
        <translation>La liste des versions contient un numéro de version non valide.</translation>
    </message>
    <message>
        <source>update_failed_title</source>
        <translation>Calmora n’a pas pu rechercher de mises à jour.</translation>
    </message>
    <message>
        <source>update_notification_text</source>
        <translation>Choisissez « Rechercher des mises à jour… » dans le menu de Calmora pour découvrir les nouveautés.</translation>
    </message>
    <message>
        <source>update_open_page</source>
        <translation>Ouvrir la page web</translation>
    </message>
    <message>
        <source>update_packaged</source>
        <translation>Les mises à jour arrivent avec les paquets de votre système.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
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
        <source>Menu</source>
        <translation>Menu</translation>
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
