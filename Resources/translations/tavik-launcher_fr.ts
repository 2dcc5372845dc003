<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Tavik::Texts</name>
    <message>
        <source>Launch at login could not be changed from this build.</source>
        <translation>Le lancement à l’ouverture de session n’a pas pu être modifié depuis cette version.</translation>
    </message>
    <message>
        <source>Enable Tavik Launcher in System Settings &gt; Login Items to finish setup.</source>
        <translation>Activez Tavik Launcher dans Réglages système &gt; Ouverture pour terminer l’installation.</translation>
    </message>
    <message>
        <source>Some features are off by default — explore Settings to enable more.</source>
        <translation>Certaines fonctions sont désactivées au départ — découvrez-les dans les Réglages.</translation>
    </message>
    <message>
        <source>Type any letters to filter the ring by app name.</source>
        <translation>Tapez quelques lettres pour filtrer l’anneau par nom d’application.</translation>
    </message>
    <message>
        <source>Double-tap your shortcut to pin the ring open.</source>
        <translation>Appuyez deux fois sur votre raccourci pour garder l’anneau ouvert.</translation>
    </message>
    <message>
        <source>Arrow keys rotate the selection — press Return to launch.</source>
        <translation>Les flèches font tourner la sélection — Entrée la lance.</translation>
    </message>
    <message>
        <source>Press 1–9 to launch that slot instantly.</source>
        <translation>Appuyez sur 1–9 pour lancer aussitôt cette case.</translation>
    </message>
    <message>
        <source>Keep favorites on the ring: Settings → Permanent Apps.</source>
        <translation>Gardez vos favoris sur l’anneau : Réglages → Apps permanentes.</translation>
    </message>
    <message>
        <source>Fill empty slots with recent apps — toggle it in Settings.</source>
        <translation>Remplissez les cases vides d’applications récentes — dans les Réglages.</translation>
    </message>
    <message>
        <source>Turn on &quot;Search All Apps&quot; in Settings to find apps beyond the ring.</source>
        <translation>« Chercher dans toutes les applications » (Réglages) va au-delà de l’anneau.</translation>
    </message>
    <message>
        <source>Make the ring yours — size, colors, and themes live in Settings.</source>
        <translation>L’anneau à votre goût — taille, couleurs et thèmes sont dans les Réglages.</translation>
    </message>
    <message>
        <source>A dot inside the menu-bar wheel means an update is ready.</source>
        <translation>Un point dans la roue de la barre de menus annonce une mise à jour.</translation>
    </message>
    <message>
        <source>Helpful hints will appear here every %1 launches. Adjust or turn them off in Settings.</source>
        <translation>Une astuce apparaîtra ici tous les %1 lancements. Voir les Réglages.</translation>
    </message>
    <message>
        <source>Settings imported from %1.</source>
        <translation>Réglages importés depuis %1.</translation>
    </message>
    <message>
        <source>Imported %1 — 1 pinned app restored, %2 not installed on this Mac.</source>
        <translation>%1 importé — 1 application permanente rétablie, non installées sur cet ordinateur : %2.</translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 — %n pinned apps restored, %2 not installed on this Mac.</source>
        <translation>
            <numerusform>%1 importé — %n application permanente rétablie, non installées sur cet ordinateur : %2.</numerusform>
            <numerusform>%1 importé — %n applications permanentes rétablies, non installées sur cet ordinateur : %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>Couldn&apos;t import %1 — is it a valid Tavik settings file?</source>
        <translation>Impossible d’importer %1 — est-ce un fichier de réglages Tavik valide ?</translation>
    </message>
    <message>
        <source>Couldn&apos;t export: %1</source>
        <translation>Exportation impossible : %1</translation>
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
        <source>to select all</source>
        <translation>pour tout sélectionner</translation>
    </message>
    <message>
        <source>to copy</source>
        <translation>pour copier</translation>
    </message>
    <message>
        <source>to find</source>
        <translation>pour chercher</translation>
    </message>
    <message>
        <source>to save</source>
        <translation>pour enregistrer</translation>
    </message>
    <message>
        <source>to paste</source>
        <translation>pour coller</translation>
    </message>
    <message>
        <source>to cut</source>
        <translation>pour couper</translation>
    </message>
    <message>
        <source>to undo</source>
        <translation>pour annuler</translation>
    </message>
    <message>
        <source>to redo</source>
        <translation>pour rétablir</translation>
    </message>
    <message>
        <source>to close a window</source>
        <translation>pour fermer une fenêtre</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Hold %1 to show the ring, let go to dismiss it</source>
        <translation>Maintenez %1 pour afficher l’anneau, relâchez pour le fermer</translation>
    </message>
    <message>
        <source>Press %1 to show or dismiss the ring</source>
        <translation>Appuyez sur %1 pour afficher ou fermer l’anneau</translation>
    </message>
    <message>
        <source>%1 types a character. As the shortcut of the ring it could not be typed in any program any more.</source>
        <translation>%1 saisit un caractère. Comme raccourci de l’anneau, il ne pourrait plus être tapé dans aucun programme.</translation>
    </message>
    <message>
        <source>Programs use %1 themselves%2. As the shortcut of the ring it would not reach any of them any more.</source>
        <translation>Les programmes utilisent eux-mêmes %1%2. Comme raccourci de l’anneau, il n’atteindrait plus aucun d’eux.</translation>
    </message>
    <message>
        <source>Shortcuts of the desktop that begin with %1 go on working.</source>
        <translation>Les raccourcis du bureau qui commencent par %1 continuent de fonctionner.</translation>
    </message>
    <message>
        <source>Shortcuts that the desktop or another program has taken stay theirs.</source>
        <translation>Les raccourcis déjà pris par le bureau ou un autre programme restent à eux.</translation>
    </message>
    <message>
        <source>AltGr only chooses which character a key types and cannot be part of a shortcut. Try one without it.</source>
        <translation>AltGr choisit seulement le caractère que tape une touche et ne peut pas faire partie d’un raccourci. Essayez sans cette touche.</translation>
    </message>
    <message>
        <source>Allow Accessibility Access</source>
        <translation>Autoriser l’accès à l’accessibilité</translation>
    </message>
    <message>
        <source>Welcome to Tavik Launcher</source>
        <translation>Bienvenue dans Tavik Launcher</translation>
    </message>
    <message>
        <source>Reindex Apps</source>
        <translation>Réindexer les applications</translation>
    </message>
    <message>
        <source>Tavik Launcher Settings</source>
        <translation>Réglages de Tavik Launcher</translation>
    </message>
    <message>
        <source>This build is not updated by itself.</source>
        <translation>Cette version ne se met pas à jour elle-même.</translation>
    </message>
    <message>
        <source>There is no update to install.</source>
        <translation>Il n’y a aucune mise à jour à installer.</translation>
    </message>
    <message>
        <source>%1 cannot be had.</source>
        <translation>%1 n’est pas disponible.</translation>
    </message>
    <message>
        <source>Another application may use it, or the keyboard has changed. Choose another shortcut in the settings.</source>
        <translation>Une autre application l’utilise peut-être, ou le clavier a changé. Choisissez un autre raccourci dans les réglages.</translation>
    </message>
    <message>
        <source>A shortcut needs at least one modifier key.</source>
        <translation>Un raccourci a besoin d’au moins une touche de modification.</translation>
    </message>
    <message>
        <source>This keyboard does not have all the keys of %1.</source>
        <translation>Ce clavier n’a pas toutes les touches de %1.</translation>
    </message>
    <message>
        <source>This desktop gives programs no shortcut of modifiers alone. Add a key: %1, say.</source>
        <translation>Ce bureau ne donne aux programmes aucun raccourci fait des seules touches de modification. Ajoutez une touche, par exemple %1.</translation>
    </message>
    <message>
        <source>%1 is already used by another application.</source>
        <translation>%1 est déjà utilisé par une autre application.</translation>
    </message>
    <message>
        <source>Type to filter…</source>
        <translation>Filtrer…</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>running</source>
        <translation>en cours d’exécution</translation>
    </message>
    <message>
        <source>starting</source>
        <translation>démarrage</translation>
    </message>
    <message>
        <source>Type to filter...</source>
        <translation>Filtrer…</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Épinglé</translation>
    </message>
    <message>
        <source>Search mode</source>
        <translation>Mode recherche</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>Nothing here yet. Click to add apps in Settings → Permanent Apps.</source>
        <translation>Rien ici. Cliquez pour en ajouter dans Réglages → Apps permanentes.</translation>
    </message>
    <message>
        <source>Windows, drawing, system services</source>
        <translation>Fenêtres, dessin, services du système</translation>
    </message>
    <message>
        <source>Desktop entries, starting applications</source>
        <translation>Fichiers .desktop, lancement des applications</translation>
    </message>
    <message>
        <source>X11 and Wayland sessions, and their keyboards</source>
        <translation>Les sessions X11 et Wayland et leurs claviers</translation>
    </message>
    <message>
        <source>Property lists</source>
        <translation>Listes de propriétés</translation>
    </message>
    <message>
        <source>Signatures of updates</source>
        <translation>Signatures des mises à jour</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Free software under the MIT license</source>
        <translation>Logiciel libre sous licence MIT</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>A fast radial launcher centered wherever your pointer is.</source>
        <translation>Un lanceur circulaire rapide, centré là où est votre pointeur.</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Welcome tour</source>
        <translation>Visite guidée</translation>
    </message>
    <message>
        <source>The ring in four short steps</source>
        <translation>L’anneau en quatre courtes étapes</translation>
    </message>
    <message>
        <source>Repeat Tour</source>
        <translation>Revoir la visite</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Assistance</translation>
    </message>
    <message>
        <source>Questions, ideas and faults</source>
        <translation>Questions, idées et défauts</translation>
    </message>
    <message>
        <source>Open Support Page</source>
        <translation>Ouvrir l’assistance</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>Construit avec</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Size and content of the ring. Every change shows at once in the ring beside this window.</source>
        <translation>Taille et contenu de l’anneau. Chaque changement se voit aussitôt dans l’anneau à côté de cette fenêtre.</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>Anneau</translation>
    </message>
    <message>
        <source>Diameter</source>
        <translation>Diamètre</translation>
    </message>
    <message>
        <source>The ring&apos;s outer size</source>
        <translation>La taille extérieure de l’anneau</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Épaisseur</translation>
    </message>
    <message>
        <source>Width of the band</source>
        <translation>Largeur de la bande</translation>
    </message>
    <message>
        <source>Icon size</source>
        <translation>Taille des icônes</translation>
    </message>
    <message>
        <source>Limited by thickness</source>
        <translation>Limitée par l’épaisseur</translation>
    </message>
    <message>
        <source>Maximum applications</source>
        <translation>Nombre maximal</translation>
    </message>
    <message>
        <source>Slots around the ring</source>
        <translation>Cases autour de l’anneau</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Textes</translation>
    </message>
    <message>
        <source>Show application names</source>
        <translation>Afficher le nom des applications</translation>
    </message>
    <message>
        <source>The selected application&apos;s name in the center</source>
        <translation>Le nom de l’application choisie au centre</translation>
    </message>
    <message>
        <source>Keep the center hint visible</source>
        <translation>Garder l’astuce au centre</translation>
    </message>
    <message>
        <source>Hints from the rotation are then not shown</source>
        <translation>Les autres astuces ne sont alors pas affichées</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Restore size, thickness, icon size and number of slots.</source>
        <translation>Rétablir taille, épaisseur, taille des icônes et nombre de cases.</translation>
    </message>
    <message>
        <source>%1, not installed</source>
        <translation>%1, non installée</translation>
    </message>
    <message>
        <source>Not installed — %1</source>
        <translation>Non installée — %1</translation>
    </message>
    <message>
        <source>Already on the ring</source>
        <translation>Déjà sur l’anneau</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sauvegarde</translation>
    </message>
    <message>
        <source>Keep your settings in a file, or carry them to another machine.</source>
        <translation>Gardez vos réglages dans un fichier, ou emportez-les sur une autre machine.</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>Write all settings to a file</source>
        <translation>Écrire tous les réglages dans un fichier</translation>
    </message>
    <message>
        <source>Export Settings…</source>
        <translation>Exporter…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>Take over the settings of a file</source>
        <translation>Reprendre les réglages d’un fichier</translation>
    </message>
    <message>
        <source>Settings that the file does not mention stay as they are.</source>
        <translation>Les réglages absents du fichier restent tels quels.</translation>
    </message>
    <message>
        <source>Import Settings…</source>
        <translation>Importer…</translation>
    </message>
    <message>
        <source>Undo Import</source>
        <translation>Annuler l’importation</translation>
    </message>
    <message>
        <source>Go back to the settings before the import; possible until this window closes.</source>
        <translation>Revenir aux réglages d’avant l’importation ; possible jusqu’à la fermeture de cette fenêtre.</translation>
    </message>
    <message>
        <source>Export Tavik Launcher Settings</source>
        <translation>Exporter les réglages de Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>Réglages (*.json)</translation>
    </message>
    <message>
        <source>Settings exported to %1.</source>
        <translation>Réglages exportés vers %1.</translation>
    </message>
    <message>
        <source>Import Tavik Launcher Settings</source>
        <translation>Importer des réglages de Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings (*.json);;All files (*)</source>
        <translation>Réglages (*.json);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>The import was undone.</source>
        <translation>L’importation a été annulée.</translation>
    </message>
    <message>
        <source>%1: choose a color</source>
        <translation>%1 : choisir une couleur</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Lancer à l’ouverture de session</translation>
    </message>
    <message>
        <source>Start Tavik Launcher quietly when you log in</source>
        <translation>Démarrer Tavik Launcher discrètement avec la session</translation>
    </message>
    <message>
        <source>The ring is then ready as soon as you are.</source>
        <translation>L’anneau est alors prêt en même temps que vous.</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>How the launcher starts and what the ring offers.</source>
        <translation>Comment le lanceur démarre et ce que propose l’anneau.</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>Afficher dans le Dock</translation>
    </message>
    <message>
        <source>Windows of the launcher appear in the taskbar</source>
        <translation>Les fenêtres du lanceur apparaissent dans la barre des tâches</translation>
    </message>
    <message>
        <source>The ring itself is never listed there.</source>
        <translation>L’anneau lui-même n’y figure jamais.</translation>
    </message>
    <message>
        <source>Double-tap pins the ring</source>
        <translation>Un double appui épingle l’anneau</translation>
    </message>
    <message>
        <source>Tap a held shortcut twice and the ring stays open</source>
        <translation>Deux appuis sur un raccourci maintenu gardent l’anneau ouvert</translation>
    </message>
    <message>
        <source>A pinned ring stays until you launch something, press Escape, or click away.</source>
        <translation>Un anneau épinglé reste jusqu’à ce que vous lanciez quelque chose, appuyiez sur Échap ou cliquiez à côté.</translation>
    </message>
    <message>
        <source>Fill with recent applications</source>
        <translation>Compléter avec les applications récentes</translation>
    </message>
    <message>
        <source>Empty slots show what you used last</source>
        <translation>Les cases vides montrent vos dernières applications</translation>
    </message>
    <message>
        <source>Pinned and running applications always come first.</source>
        <translation>Les applications épinglées et en cours passent toujours d’abord.</translation>
    </message>
    <message>
        <source>Search all applications</source>
        <translation>Chercher dans toutes les applications</translation>
    </message>
    <message>
        <source>Typing also finds applications beyond the ring</source>
        <translation>La saisie trouve aussi les applications hors de l’anneau</translation>
    </message>
    <message>
        <source>Otherwise only what the ring shows is searched.</source>
        <translation>Sinon, seul ce que montre l’anneau est cherché.</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>Intervalle</translation>
    </message>
    <message>
        <source>Launches from one hint to the next</source>
        <translation>Lancements d’une astuce à la suivante</translation>
    </message>
    <message>
        <source>Hints</source>
        <translation>Astuces</translation>
    </message>
    <message>
        <source>Short tips in the middle of the ring, now and then.</source>
        <translation>De courts conseils au centre de l’anneau, de temps en temps.</translation>
    </message>
    <message>
        <source>Show hints</source>
        <translation>Afficher les astuces</translation>
    </message>
    <message>
        <source>One tip at a time</source>
        <translation>Un conseil à la fois</translation>
    </message>
    <message>
        <source>Not shown while the center hint is kept visible, see Appearance</source>
        <translation>Non affichées tant que l’astuce reste au centre, voir Apparence</translation>
    </message>
    <message>
        <source>All hints</source>
        <translation>Toutes les astuces</translation>
    </message>
    <message>
        <source>Permanent Apps</source>
        <translation>Apps permanentes</translation>
    </message>
    <message>
        <source>Always on the ring, clockwise from the top, whether they run or not.</source>
        <translation>Toujours sur l’anneau, dans le sens horaire depuis le haut, en cours ou non.</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>No application is called that.</source>
        <translation>Aucune application ne porte ce nom.</translation>
    </message>
    <message>
        <source>Applications found</source>
        <translation>Applications trouvées</translation>
    </message>
    <message>
        <source>On the ring</source>
        <translation>Sur l’anneau</translation>
    </message>
    <message>
        <source>Nothing yet. Search above to add applications.</source>
        <translation>Rien pour l’instant. Cherchez ci-dessus pour ajouter des applications.</translation>
    </message>
    <message>
        <source>Permanent applications</source>
        <translation>Applications permanentes</translation>
    </message>
    <message>
        <source>Drag to change the order, or press Alt with an arrow key. Delete removes.</source>
        <translation>Glissez pour changer l’ordre, ou Alt avec une flèche. Suppr retire.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Chercher</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Chercher des applications</translation>
    </message>
    <message>
        <source>Type a name; Return adds the first application found.</source>
        <translation>Tapez un nom ; Entrée ajoute la première application trouvée.</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Ajouter…</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>Choose an application that the search does not find.</source>
        <translation>Choisir une application que la recherche ne trouve pas.</translation>
    </message>
    <message>
        <source>Add an Application</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>Applications (*.desktop *.app)</source>
        <translation>Applications (*.desktop *.app)</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>Monter</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>Descendre</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>Take the selected application off the ring.</source>
        <translation>Retirer de l’anneau l’application sélectionnée.</translation>
    </message>
    <message>
        <source>%1 is not an application.</source>
        <translation>%1 n’est pas une application.</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Raccourci</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Thème</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>What brings the ring up, anywhere.</source>
        <translation>Ce qui fait apparaître l’anneau, partout.</translation>
    </message>
    <message>
        <source>Trigger shortcut</source>
        <translation>Raccourci de déclenchement</translation>
    </message>
    <message>
        <source>Click, then press the new shortcut.</source>
        <translation>Cliquez, puis appuyez sur le nouveau raccourci.</translation>
    </message>
    <message>
        <source>Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and release them to use a hold-to-show shortcut. Press Escape to cancel recording.</source>
        <translation>Appuyez sur Modificateur+Touche pour un raccourci qui bascule l’anneau. Ou maintenez ≥2 touches de modification et relâchez-les pour l’afficher en les maintenant. Échap annule l’enregistrement.</translation>
    </message>
    <message>
        <source>Use Default Shortcut</source>
        <translation>Raccourci par défaut</translation>
    </message>
    <message>
        <source>Go back to %1.</source>
        <translation>Revenir à %1.</translation>
    </message>
    <message>
        <source>Use It Anyway</source>
        <translation>L’utiliser quand même</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>En choisir un autre</translation>
    </message>
    <message>
        <source>%1 cannot be used. %2</source>
        <translation>%1 ne peut pas être utilisé. %2</translation>
    </message>
    <message>
        <source>Press a shortcut…</source>
        <translation>Tapez un raccourci…</translation>
    </message>
    <message>
        <source>Trigger shortcut: %1</source>
        <translation>Raccourci de déclenchement : %1</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Noir</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>Anthracite</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Graphite</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>Ardoise</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>Minuit</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>Marine</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>Forêt</translation>
    </message>
    <message>
        <source>Pine</source>
        <translation>Pin</translation>
    </message>
    <message>
        <source>Plum</source>
        <translation>Prune</translation>
    </message>
    <message>
        <source>Aubergine</source>
        <translation>Aubergine</translation>
    </message>
    <message>
        <source>Oxblood</source>
        <translation>Sang-de-bœuf</translation>
    </message>
    <message>
        <source>Espresso</source>
        <translation>Expresso</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>Ciel</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Cyan</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Menthe</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Lime</source>
        <translation>Citron vert</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Jaune</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>Braise</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>Rose</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Violet</translation>
    </message>
    <message>
        <source>Ready colors</source>
        <translation>Couleurs prêtes</translation>
    </message>
    <message>
        <source>Dark Backgrounds</source>
        <translation>Fonds sombres</translation>
    </message>
    <message>
        <source>Accents</source>
        <translation>Accents</translation>
    </message>
    <message>
        <source>More Colors…</source>
        <translation>Autres couleurs…</translation>
    </message>
    <message>
        <source>Apply a pre-made color theme to the ring; choosing Custom lets you set each color individually.</source>
        <translation>Appliquez à l’anneau un thème de couleurs tout prêt ; Personnalisé permet de régler chaque couleur.</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Personnalisé</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>Ring color</source>
        <translation>Couleur de l’anneau</translation>
    </message>
    <message>
        <source>The band behind the icons</source>
        <translation>La bande derrière les icônes</translation>
    </message>
    <message>
        <source>Six hexadecimal digits, or a ready color from the well.</source>
        <translation>Six chiffres hexadécimaux, ou une couleur toute prête de la palette.</translation>
    </message>
    <message>
        <source>Highlight color</source>
        <translation>Couleur de surbrillance</translation>
    </message>
    <message>
        <source>The wedge under the selection</source>
        <translation>Le secteur sous la sélection</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Opacité</translation>
    </message>
    <message>
        <source>How solid the band is</source>
        <translation>Opacité de la bande</translation>
    </message>
    <message>
        <source>Highlight</source>
        <translation>Surbrillance</translation>
    </message>
    <message>
        <source>Strength of the wedge</source>
        <translation>Force du secteur</translation>
    </message>
    <message>
        <source>Name label</source>
        <translation>Étiquette du nom</translation>
    </message>
    <message>
        <source>Background of names and hints</source>
        <translation>Fond des noms et des astuces</translation>
    </message>
    <message>
        <source>Running applications</source>
        <translation>Applications en cours</translation>
    </message>
    <message>
        <source>Mark running applications</source>
        <translation>Marquer les applications en cours</translation>
    </message>
    <message>
        <source>A dot beside the icon of each</source>
        <translation>Un point à côté de l’icône de chacune</translation>
    </message>
    <message>
        <source>Dot color</source>
        <translation>Couleur du point</translation>
    </message>
    <message>
        <source>Themes leave it as it is</source>
        <translation>Les thèmes n’y touchent pas</translation>
    </message>
    <message>
        <source>Colors and opacity of the ring.</source>
        <translation>Couleurs et opacité de l’anneau.</translation>
    </message>
    <message>
        <source>Themes</source>
        <translation>Thèmes</translation>
    </message>
    <message>
        <source>Restore Default Theme</source>
        <translation>Rétablir le thème par défaut</translation>
    </message>
    <message>
        <source>Restore all colors and opacity values to the default Tavik Classic theme.</source>
        <translation>Rétablir toutes les couleurs et opacités du thème par défaut Tavik Classic.</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Fréquence</translation>
    </message>
    <message>
        <source>How often to look for a new version</source>
        <translation>À quel rythme chercher une nouvelle version</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Par jour</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>Par semaine</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>Par mois</translation>
    </message>
    <message>
        <source>New versions are never installed without asking you.</source>
        <translation>Aucune nouvelle version n’est installée sans votre accord.</translation>
    </message>
    <message>
        <source>This version</source>
        <translation>Cette version</translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation>Chercher les mises à jour automatiquement</translation>
    </message>
    <message>
        <source>A dot in the wheel&apos;s symbol or a notification tells of a new version</source>
        <translation>Un point dans la roue ou une notification annonce une nouvelle version</translation>
    </message>
    <message>
        <source>Look for a new version at once.</source>
        <translation>Chercher tout de suite une nouvelle version.</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>Vérifier</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher les mises à jour…</translation>
    </message>
    <message>
        <source>About Tavik Launcher</source>
        <translation>À propos de Tavik Launcher</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Réglages…</translation>
    </message>
    <message>
        <source>Show Tavik Launcher</source>
        <translation>Afficher Tavik Launcher</translation>
    </message>
    <message>
        <source>Reindex Apps…</source>
        <translation>Réindexer les applications…</translation>
    </message>
    <message>
        <source>Support…</source>
        <translation>Assistance…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Update to %1 Available…</source>
        <translation>Mise à jour %1 disponible…</translation>
    </message>
    <message>
        <source>Tavik Launcher — update available</source>
        <translation>Tavik Launcher — mise à jour disponible</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>Nouveautés</translation>
    </message>
    <message>
        <source>The update is with your installer.</source>
        <translation>La mise à jour est chez votre installateur.</translation>
    </message>
    <message>
        <source>Tavik Launcher %1 has been downloaded and verified. Your desktop&apos;s installer takes it from here. Once it is done, quit Tavik Launcher and start it again.</source>
        <translation>Tavik Launcher %1 a été téléchargé et vérifié. L’installateur de votre bureau prend le relais. Quand il aura fini, quittez Tavik Launcher et relancez-le.</translation>
    </message>
    <message>
        <source>Looking for updates did not work.</source>
        <translation>La recherche de mises à jour a échoué.</translation>
    </message>
    <message>
        <source>The page could not be opened.</source>
        <translation>La page n’a pas pu être ouverte.</translation>
    </message>
    <message>
        <source>The update was not installed.</source>
        <translation>La mise à jour n’a pas été installée.</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>Mise à jour logicielle</translation>
    </message>
    <message>
        <source>A new version of Tavik Launcher is available.</source>
        <translation>Une nouvelle version de Tavik Launcher est disponible.</translation>
    </message>
    <message>
        <source>Version %1 is out; you have %2.</source>
        <translation>La version %1 est sortie ; vous avez la %2.</translation>
    </message>
    <message>
        <source>It cannot be installed from here. Its page tells how to get it.</source>
        <translation>Elle ne peut pas être installée d’ici. Sa page explique comment l’obtenir.</translation>
    </message>
    <message>
        <source>This version is important. Please install it soon.</source>
        <translation>Cette version est importante. Installez-la bientôt.</translation>
    </message>
    <message>
        <source>Fetching the release notes…</source>
        <translation>Chargement des nouveautés…</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>Il n’y a pas de notes de version.</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>Ignorer cette version</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>Me le rappeler plus tard</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>En savoir plus</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>Installer</translation>
    </message>
    <message>
        <source>The release notes could not be fetched. %1</source>
        <translation>Les nouveautés n’ont pas pu être chargées. %1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>Installer et relancer</translation>
    </message>
    <message>
        <source>Looking for a newer version…</source>
        <translation>Recherche d’une version plus récente…</translation>
    </message>
    <message>
        <source>Downloading Tavik Launcher %1…</source>
        <translation>Téléchargement de Tavik Launcher %1…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>Connexion…</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 — %2 per second</source>
        <translation>%1 — %2 par seconde</translation>
    </message>
    <message>
        <source>Verifying the download…</source>
        <translation>Vérification du téléchargement…</translation>
    </message>
    <message>
        <source>Only what its maker has signed is installed.</source>
        <translation>Seul ce que son auteur a signé est installé.</translation>
    </message>
    <message>
        <source>Ready to install.</source>
        <translation>Prêt à installer.</translation>
    </message>
    <message>
        <source>Tavik Launcher closes, and starts again as version %1.</source>
        <translation>Tavik Launcher se ferme et redémarre dans sa version %1.</translation>
    </message>
    <message>
        <source>Installing…</source>
        <translation>Installation…</translation>
    </message>
    <message>
        <source>Tavik Launcher starts again in a moment.</source>
        <translation>Tavik Launcher redémarre dans un instant.</translation>
    </message>
    <message>
        <source>If a permission prompt appeared, click Allow. Otherwise open Settings and enable the toggle next to Tavik Launcher.</source>
        <translation>Si une demande d’autorisation est apparue, cliquez sur Autoriser. Sinon, ouvrez les Réglages et activez l’interrupteur à côté de Tavik Launcher.</translation>
    </message>
    <message>
        <source>Not enabled yet — flip the toggle next to Tavik Launcher in Accessibility settings.</source>
        <translation>Pas encore activé — basculez l’interrupteur à côté de Tavik Launcher dans les réglages d’accessibilité.</translation>
    </message>
    <message>
        <source>Enable Accessibility Access</source>
        <translation>Activer l’accès à l’accessibilité</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>Ouvrir les réglages d’accessibilité</translation>
    </message>
    <message>
        <source>Done — I&apos;ve Enabled It</source>
        <translation>Terminé — c’est activé</translation>
    </message>
    <message>
        <source>Skip for Now</source>
        <translation>Passer pour l’instant</translation>
    </message>
    <message>
        <source>Hotkey Is Active</source>
        <translation>Le raccourci est actif</translation>
    </message>
    <message>
        <source>The global hotkey is now working. Tavik Launcher will appear over any app.</source>
        <translation>Le raccourci global fonctionne maintenant. Tavik Launcher apparaîtra au-dessus de toute application.</translation>
    </message>
    <message>
        <source>Tavik Launcher needs Accessibility permission so the hotkey works when other apps are in the foreground.</source>
        <translation>Tavik Launcher a besoin de l’autorisation d’accessibilité pour que le raccourci agisse quand d’autres applications sont au premier plan.</translation>
    </message>
    <message>
        <source>Command Copied</source>
        <translation>Commande copiée</translation>
    </message>
    <message>
        <source>Copy the Command</source>
        <translation>Copier la commande</translation>
    </message>
    <message>
        <source>Press the shortcut</source>
        <translation>Appuyez sur le raccourci</translation>
    </message>
    <message>
        <source>Press %1 to toggle the ring at the pointer. Press it again or hit Esc to dismiss. Go ahead — try it right now!</source>
        <translation>Appuyez sur %1 pour faire apparaître l’anneau au pointeur. Un nouvel appui ou Échap le ferme. Allez-y — essayez tout de suite !</translation>
    </message>
    <message>
        <source>Hold the shortcut</source>
        <translation>Maintenez le raccourci</translation>
    </message>
    <message>
        <source>Press and hold %1 to open the ring at the pointer. Release to dismiss unless search mode is active. Go ahead — try it right now!</source>
        <translation>Maintenez %1 pour ouvrir l’anneau au pointeur. Relâchez pour le fermer, sauf en mode recherche. Allez-y — essayez tout de suite !</translation>
    </message>
    <message>
        <source>Move or type</source>
        <translation>Pointez ou tapez</translation>
    </message>
    <message>
        <source>Hover an app slice to select it, or type to filter. Typing pins the ring until you launch, press Esc, or click away.</source>
        <translation>Survolez une part de l’anneau pour la choisir, ou tapez pour filtrer. La saisie épingle l’anneau jusqu’au lancement, à Échap ou à un clic à côté.</translation>
    </message>
    <message>
        <source>Pin your favorites</source>
        <translation>Épinglez vos favoris</translation>
    </message>
    <message>
        <source>Add permanent apps in Settings, then drag pinned apps to lock their clockwise ring order.</source>
        <translation>Ajoutez des applications permanentes dans les Réglages, puis glissez-les pour fixer leur ordre autour de l’anneau.</translation>
    </message>
    <message>
        <source>Tune the look</source>
        <translation>Réglez l’apparence</translation>
    </message>
    <message>
        <source>Adjust size, spacing, colors, opacity, themes, and the global shortcut whenever you want.</source>
        <translation>Taille, espacement, couleurs, opacité, thèmes et raccourci global se règlent quand vous voulez.</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>Ouvrir les réglages</translation>
    </message>
    <message>
        <source>Start Using Tavik</source>
        <translation>Commencer</translation>
    </message>
    <message>
        <source>Tavik Launcher keeps an index of every app in your Applications folders — it powers the ring and search.</source>
        <translation>Tavik Launcher tient un index de toutes les applications de vos dossiers Applications — l’anneau et la recherche s’en servent.</translation>
    </message>
    <message>
        <source>The index refreshes itself automatically whenever you open the ring, so you rarely need this. Run it manually if an app you just installed isn&apos;t showing up in search, or after moving apps between folders.</source>
        <translation>L’index se met à jour de lui-même quand vous ouvrez l’anneau, vous en aurez donc rarement besoin. Lancez-le à la main si une application tout juste installée manque à la recherche, ou après avoir déplacé des applications.</translation>
    </message>
    <message>
        <source>All set. You can verify it worked by opening the ring and typing the name of a recently installed app.</source>
        <translation>C’est fait. Pour vérifier, ouvrez l’anneau et tapez le nom d’une application récemment installée.</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>Analyse…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Reindex Now</source>
        <translation>Réindexer</translation>
    </message>
    <message numerus="yes">
        <source>Indexed %n apps</source>
        <translation>
            <numerusform>%n application indexée</numerusform>
            <numerusform>%n applications indexées</numerusform>
        </translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Surveillance de l’entrée</translation>
    </message>
    <message>
        <source>Full Disk Access</source>
        <translation>Accès complet au disque</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Accessibilité</translation>
    </message>
    <message>
        <source>Privacy &amp; Security</source>
        <translation>Confidentialité et sécurité</translation>
    </message>
    <message>
        <source>Enable here</source>
        <translation>Activez ici</translation>
    </message>
    <message>
        <source>It is no application that can be started.</source>
        <translation>Ce n’est pas une application qui peut être lancée.</translation>
    </message>
    <message>
        <source>The file “%1” may not be executed. Allow that in its properties first.</source>
        <translation>Le fichier « %1 » ne peut pas être exécuté. Autorisez-le d’abord dans ses propriétés.</translation>
    </message>
    <message>
        <source>It names no program to start.</source>
        <translation>Elle ne nomme aucun programme à lancer.</translation>
    </message>
    <message>
        <source>It needs a terminal, and none is installed.</source>
        <translation>Elle a besoin d’un terminal, et aucun n’est installé.</translation>
    </message>
    <message>
        <source>The application has no program to start.</source>
        <translation>L’application n’a aucun programme à lancer.</translation>
    </message>
    <message>
        <source>no program is installed for it</source>
        <translation>aucun programme n’est installé pour cela</translation>
    </message>
    <message>
        <source>The program cannot be started.</source>
        <translation>Le programme ne peut pas être lancé.</translation>
    </message>
    <message>
        <source>There is no program to start.</source>
        <translation>Il n’y a aucun programme à lancer.</translation>
    </message>
    <message>
        <source>“%1” could not be opened</source>
        <translation>« %1 » n’a pas pu être ouvert</translation>
    </message>
    <message>
        <source>GNOME lets programs listen for no key, so a custom shortcut is added to its keyboard settings for as long as Tavik Launcher runs.</source>
        <translation>GNOME ne laisse les programmes écouter aucune touche ; un raccourci personnalisé est donc ajouté à ses réglages du clavier tant que Tavik Launcher fonctionne.</translation>
    </message>
    <message>
        <source>Summon the ring</source>
        <translation>Faire apparaître l’anneau</translation>
    </message>
    <message>
        <source>KDE gives programs no shortcut of modifiers alone, so it is asked for the same modifiers with Space. System Settings › Shortcuts lists it.</source>
        <translation>KDE ne donne aux programmes aucun raccourci fait des seules touches de modification ; les mêmes touches avec Espace lui sont donc demandées. Il figure dans Configuration du système › Raccourcis.</translation>
    </message>
    <message>
        <source>%1 is not a regular file</source>
        <translation>%1 n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made</source>
        <translation>Le dossier %1 ne peut pas être créé</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2.</source>
        <translation>« %1 » n’a pas pu être ouvert : %2.</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › View and Customize Shortcuts</source>
        <translation>dans Paramètres › Clavier › Afficher et personnaliser les raccourcis</translation>
    </message>
    <message>
        <source>in System Settings › Shortcuts</source>
        <translation>dans Configuration du système › Raccourcis</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › Application Shortcuts</source>
        <translation>dans Paramètres › Clavier › Raccourcis d’applications</translation>
    </message>
    <message>
        <source>in System Settings › Keyboard › Shortcuts</source>
        <translation>dans Paramètres système › Clavier › Raccourcis</translation>
    </message>
    <message>
        <source>in Control Center › Keyboard Shortcuts</source>
        <translation>dans Centre de contrôle › Raccourcis clavier</translation>
    </message>
    <message>
        <source>in Configuration Center › Shortcut Keys</source>
        <translation>dans Centre de configuration › Touches de raccourci</translation>
    </message>
    <message>
        <source>with bindsym in the configuration of sway</source>
        <translation>avec bindsym dans la configuration de sway</translation>
    </message>
    <message>
        <source>with bind in the configuration of Hyprland</source>
        <translation>avec bind dans la configuration de Hyprland</translation>
    </message>
    <message>
        <source>where your desktop or window manager keeps its shortcuts</source>
        <translation>là où votre bureau ou gestionnaire de fenêtres garde ses raccourcis</translation>
    </message>
    <message>
        <source>A Wayland desktop tells no program which keys are held while another one is in front.</source>
        <translation>Un bureau Wayland ne dit à aucun programme quelles touches sont maintenues pendant qu’un autre est au premier plan.</translation>
    </message>
    <message>
        <source>Bind the command %1 to a key of your choice %2.</source>
        <translation>Associez la commande %1 à une touche de votre choix %2.</translation>
    </message>
    <message>
        <source>The update cannot be downloaded, because its address is not a safe one.</source>
        <translation>La mise à jour ne peut pas être téléchargée, car son adresse n’est pas sûre.</translation>
    </message>
    <message>
        <source>The update is not signed, so it cannot be installed.</source>
        <translation>La mise à jour n’est pas signée ; elle ne peut pas être installée.</translation>
    </message>
    <message>
        <source>The update&apos;s signature is damaged, so it cannot be installed.</source>
        <translation>La signature de la mise à jour est abîmée ; elle ne peut pas être installée.</translation>
    </message>
    <message>
        <source>The update does not say how large it is, so it cannot be installed.</source>
        <translation>La mise à jour ne dit pas sa taille ; elle ne peut pas être installée.</translation>
    </message>
    <message>
        <source>The update is larger than %1 MB, so it cannot be installed.</source>
        <translation>La mise à jour dépasse %1 Mo ; elle ne peut pas être installée.</translation>
    </message>
    <message>
        <source>Its makers have not signed which version it is, so it cannot be installed.</source>
        <translation>Ses auteurs n’ont pas signé de quelle version il s’agit ; elle ne peut pas être installée.</translation>
    </message>
    <message>
        <source>The server answered with a web page instead of a list of updates.</source>
        <translation>Le serveur a répondu par une page web au lieu d’une liste de mises à jour.</translation>
    </message>
    <message>
        <source>The server answered with something other than a list of updates.</source>
        <translation>Le serveur a répondu par autre chose qu’une liste de mises à jour.</translation>
    </message>
    <message>
        <source>The list of updates declares a document type, which is not allowed.</source>
        <translation>La liste des mises à jour déclare un type de document, ce qui n’est pas permis.</translation>
    </message>
    <message>
        <source>The list of updates is damaged: it has an element that is too long.</source>
        <translation>La liste des mises à jour est abîmée : elle a un élément trop long.</translation>
    </message>
    <message>
        <source>The list of updates is damaged: its elements are nested too deep.</source>
        <translation>La liste des mises à jour est abîmée : ses éléments sont trop imbriqués.</translation>
    </message>
    <message>
        <source>The list of updates has more than %1 entries.</source>
        <translation>La liste des mises à jour a plus de %1 entrées.</translation>
    </message>
    <message>
        <source>The list of updates is damaged in line %1.</source>
        <translation>La liste des mises à jour est abîmée à la ligne %1.</translation>
    </message>
    <message>
        <source>The list of updates is empty.</source>
        <translation>La liste des mises à jour est vide.</translation>
    </message>
    <message>
        <source>The list of updates is too large.</source>
        <translation>La liste des mises à jour est trop grande.</translation>
    </message>
    <message>
        <source>The list of updates is not valid text in UTF-8.</source>
        <translation>La liste des mises à jour n’est pas un texte UTF-8 valide.</translation>
    </message>
    <message>
        <source>%1 is available, but it needs Linux %2 or newer. This computer runs Linux %3.</source>
        <translation>%1 est disponible, mais demande Linux %2 ou plus récent. Cet ordinateur utilise Linux %3.</translation>
    </message>
    <message>
        <source>%1 is available, but not for systems newer than Linux %2. This computer runs Linux %3.</source>
        <translation>%1 est disponible, mais pas pour les systèmes plus récents que Linux %2. Cet ordinateur utilise Linux %3.</translation>
    </message>
    <message>
        <source>You chose to skip %1.</source>
        <translation>Vous avez choisi d’ignorer %1.</translation>
    </message>
    <message>
        <source>%1 is being handed out step by step and will come to this computer later.</source>
        <translation>%1 est distribué par étapes et viendra plus tard sur cet ordinateur.</translation>
    </message>
    <message>
        <source>%1 is available, but there is no page to read about it.</source>
        <translation>%1 est disponible, mais aucune page n’en parle.</translation>
    </message>
    <message>
        <source>%1 is available, but not as a file that can be installed here.</source>
        <translation>%1 est disponible, mais pas sous forme de fichier installable ici.</translation>
    </message>
    <message>
        <source>%1 is available. %2</source>
        <translation>%1 est disponible. %2</translation>
    </message>
    <message>
        <source>You&apos;re up to date. Tavik Launcher %1 is newer than the newest on offer, %2.</source>
        <translation>Vous êtes à jour. Tavik Launcher %1 est plus récent que la dernière version proposée, %2.</translation>
    </message>
    <message>
        <source>You&apos;re up to date. %1 is the newest version.</source>
        <translation>Vous êtes à jour. %1 est la dernière version.</translation>
    </message>
    <message>
        <source>The list of updates has no version for this computer.</source>
        <translation>La liste des mises à jour n’a aucune version pour cet ordinateur.</translation>
    </message>
    <message>
        <source>The list of updates is older than one seen before: its newest signed version is %1, but %2 was there already. Nothing is installed from it.</source>
        <translation>La liste des mises à jour est plus ancienne qu’une précédente : sa dernière version signée est %1, mais %2 existait déjà. Rien n’en est installé.</translation>
    </message>
    <message>
        <source>Newer versions come the way this one came: from your package manager, or from whoever built it for you.</source>
        <translation>Les nouvelles versions arrivent par le même chemin que celle-ci : votre gestionnaire de paquets, ou qui l’a construite pour vous.</translation>
    </message>
    <message>
        <source>It was made without an update feed.</source>
        <translation>Elle a été faite sans liste de mises à jour.</translation>
    </message>
    <message>
        <source>It was made without a key to tell genuine updates by.</source>
        <translation>Elle a été faite sans clé pour reconnaître les vraies mises à jour.</translation>
    </message>
    <message>
        <source>It was made with an update feed at an address that is not safe: “%1”.</source>
        <translation>Elle a été faite avec une liste de mises à jour à une adresse qui n’est pas sûre : « %1 ».</translation>
    </message>
    <message>
        <source>It was made with a key for updates that is none.</source>
        <translation>Elle a été faite avec une clé de mise à jour qui n’en est pas une.</translation>
    </message>
    <message>
        <source>The new version could not be put in the place of “%1”: %2.</source>
        <translation>La nouvelle version n’a pas pu prendre la place de « %1 » : %2.</translation>
    </message>
    <message>
        <source>“%1”, which this program was started from, is no longer there or is something else now.</source>
        <translation>« %1 », d’où ce programme a été lancé, n’est plus là ou est maintenant autre chose.</translation>
    </message>
    <message>
        <source>The folder “%1”, which this program was started from, may not be changed by you. Move the program to a folder of your own, or replace it as an administrator.</source>
        <translation>Vous ne pouvez pas modifier le dossier « %1 » d’où ce programme a été lancé. Placez le programme dans un dossier à vous, ou remplacez-le en tant qu’administrateur.</translation>
    </message>
    <message>
        <source>The update is not an AppImage, as this program is.</source>
        <translation>La mise à jour n’est pas une AppImage comme ce programme.</translation>
    </message>
    <message>
        <source>The update is made for another kind of computer.</source>
        <translation>La mise à jour est faite pour un autre type d’ordinateur.</translation>
    </message>
    <message>
        <source>The update does not say when it was made.</source>
        <translation>La mise à jour ne dit pas quand elle a été faite.</translation>
    </message>
    <message>
        <source>The update is older than this program, whatever its number says.</source>
        <translation>La mise à jour est plus ancienne que ce programme, quoi que dise son numéro.</translation>
    </message>
    <message>
        <source>Another Tavik Launcher is being updated in the folder “%1”.</source>
        <translation>Un autre Tavik Launcher est en cours de mise à jour dans le dossier « %1 ».</translation>
    </message>
    <message>
        <source>There is not enough room for the update in the folder “%1”.</source>
        <translation>Il n’y a pas assez de place pour la mise à jour dans le dossier « %1 ».</translation>
    </message>
    <message>
        <source>The update could not be written to the folder “%1”: %2.</source>
        <translation>La mise à jour n’a pas pu être écrite dans le dossier « %1 » : %2.</translation>
    </message>
    <message>
        <source>The update on the server is not the one that was announced: its length is another.</source>
        <translation>La mise à jour du serveur n’est pas celle annoncée : sa longueur est différente.</translation>
    </message>
    <message>
        <source>The update</source>
        <translation>La mise à jour</translation>
    </message>
    <message>
        <source>The server did not continue where it was asked to.</source>
        <translation>Le serveur n’a pas repris là où on le lui demandait.</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be used for the update.</source>
        <translation>Le dossier « %1 » ne peut pas servir à la mise à jour.</translation>
    </message>
    <message>
        <source>%1 is not on the server.</source>
        <translation>%1 : introuvable sur le serveur.</translation>
    </message>
    <message>
        <source>The server answered with an error (%1).</source>
        <translation>Le serveur a répondu par une erreur (%1).</translation>
    </message>
    <message>
        <source>The server sent something packed, which was refused.</source>
        <translation>Le serveur a envoyé quelque chose de compressé, qui a été refusé.</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Perhaps this computer is not connected to the internet.</source>
        <translation>Le serveur « %1 » est introuvable. Cet ordinateur n’est peut-être pas connecté à Internet.</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached.</source>
        <translation>Le serveur « %1 » ne peut pas être joint.</translation>
    </message>
    <message>
        <source>The server “%1” could not prove who it is: its certificate is not valid here.</source>
        <translation>Le serveur « %1 » n’a pas pu prouver qui il est : son certificat n’est pas valable ici.</translation>
    </message>
    <message>
        <source>No protected connection to the server “%1” could be made.</source>
        <translation>Aucune connexion protégée avec le serveur « %1 » n’a pu être établie.</translation>
    </message>
    <message>
        <source>The proxy of this network let nothing through.</source>
        <translation>Le mandataire de ce réseau n’a rien laissé passer.</translation>
    </message>
    <message>
        <source>The connection to the server broke off.</source>
        <translation>La connexion au serveur a été coupée.</translation>
    </message>
    <message>
        <source>The list of updates</source>
        <translation>La liste des mises à jour</translation>
    </message>
    <message>
        <source>The text about the new version</source>
        <translation>Le texte sur la nouvelle version</translation>
    </message>
    <message>
        <source>What the server sent about the new version is no text.</source>
        <translation>Ce que le serveur a envoyé sur la nouvelle version n’est pas du texte.</translation>
    </message>
    <message>
        <source>The downloaded update is not a file that belongs to you alone.</source>
        <translation>La mise à jour téléchargée n’est pas un fichier qui n’appartient qu’à vous.</translation>
    </message>
    <message>
        <source>The downloaded update has %1 bytes instead of %2. It will not be installed.</source>
        <translation>La mise à jour téléchargée fait %1 octets au lieu de %2. Elle ne sera pas installée.</translation>
    </message>
    <message>
        <source>The downloaded update could not be read.</source>
        <translation>La mise à jour téléchargée n’a pas pu être lue.</translation>
    </message>
    <message>
        <source>The downloaded update was changed while it was being verified.</source>
        <translation>La mise à jour téléchargée a changé pendant sa vérification.</translation>
    </message>
    <message>
        <source>The downloaded update is not signed by the makers of Tavik Launcher. It will not be installed.</source>
        <translation>La mise à jour téléchargée n’est pas signée par les auteurs de Tavik Launcher. Elle ne sera pas installée.</translation>
    </message>
    <message>
        <source>This build has no usable key to verify updates with.</source>
        <translation>Cette version n’a aucune clé utilisable pour vérifier les mises à jour.</translation>
    </message>
    <message>
        <source>The update has no size that can be installed.</source>
        <translation>La mise à jour n’a pas une taille installable.</translation>
    </message>
    <message>
        <source>Updates cannot be verified on this computer.</source>
        <translation>Les mises à jour ne peuvent pas être vérifiées sur cet ordinateur.</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>Le serveur ne répond plus.</translation>
    </message>
    <message>
        <source>The server is too slow.</source>
        <translation>Le serveur est trop lent.</translation>
    </message>
    <message>
        <source>%1 would come over an unprotected connection.</source>
        <translation>%1 arriverait par une connexion non protégée.</translation>
    </message>
    <message>
        <source>The system lets no process be started for the download.</source>
        <translation>Le système ne laisse démarrer aucun processus pour le téléchargement.</translation>
    </message>
    <message>
        <source>The server wanted to go on over an unprotected connection, which was refused.</source>
        <translation>Le serveur voulait continuer par une connexion non protégée, ce qui a été refusé.</translation>
    </message>
    <message>
        <source>The server only points from one address to the next.</source>
        <translation>Le serveur ne fait que renvoyer d’une adresse à la suivante.</translation>
    </message>
    <message>
        <source>The server sent far more than it was asked for.</source>
        <translation>Le serveur a envoyé bien plus que demandé.</translation>
    </message>
    <message>
        <source>%1 is larger than the %2 MB it may have.</source>
        <translation>%1 dépasse les %2 Mo permis.</translation>
    </message>
    <message>
        <source>This X server lacks the extensions, RECORD and XKEYBOARD, that tell a program which keys are held.</source>
        <translation>Il manque à ce serveur X les extensions RECORD et XKEYBOARD, qui disent à un programme quelles touches sont maintenues.</translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <translation>d MMMM yyyy</translation>
    </message>
    <message>
        <source>press the shortcut: for a key that the desktop binds</source>
        <translation>appuyer sur le raccourci : pour une touche attribuée par le bureau</translation>
    </message>
    <message>
        <source>show the ring</source>
        <translation>afficher l’anneau</translation>
    </message>
    <message>
        <source>show the ring at the pointer, or hide it</source>
        <translation>afficher l’anneau au pointeur, ou le masquer</translation>
    </message>
    <message>
        <source>hide the ring</source>
        <translation>masquer l’anneau</translation>
    </message>
    <message>
        <source>open the settings, with =SECTION at that section</source>
        <translation>ouvrir les réglages, avec =SECTION à cette section</translation>
    </message>
    <message>
        <source>open the window that rebuilds the application index</source>
        <translation>ouvrir la fenêtre qui reconstruit l’index des applications</translation>
    </message>
    <message>
        <source>show the tour</source>
        <translation>afficher la visite</translation>
    </message>
    <message>
        <source>ask for a newer version</source>
        <translation>rechercher une version plus récente</translation>
    </message>
    <message>
        <source>end the running launcher</source>
        <translation>quitter le lanceur en cours d’exécution</translation>
    </message>
    <message>
        <source>Usage: tavik-launcher [option]</source>
        <translation>Utilisation : tavik-launcher [option]</translation>
    </message>
    <message>
        <source>Without an option: start the launcher, or show the ring of the one that runs.</source>
        <translation>Sans option : démarrer le lanceur, ou afficher l’anneau de celui qui est en cours d’exécution.</translation>
    </message>
    <message>
        <source>start as at login: nothing is shown unasked</source>
        <translation>démarrer comme à l’ouverture de session : rien ne s’affiche de soi-même</translation>
    </message>
    <message>
        <source>print the version, and how the screen is reached</source>
        <translation>afficher la version et le mode d’accès à l’écran</translation>
    </message>
    <message>
        <source>print this text</source>
        <translation>afficher ce texte</translation>
    </message>
    <message>
        <source>the settings have no section &quot;%1&quot;; there are %2</source>
        <translation>les réglages n’ont pas de section « %1 » ; il y a %2</translation>
    </message>
    <message>
        <source>one option at a time</source>
        <translation>une seule option à la fois</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>option inconnue : %1</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 n’accepte pas de valeur</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 résultat</translation>
    </message>
    <message numerus="yes">
        <source>%n matches</source>
        <translation>
            <numerusform>%n résultat</numerusform>
            <numerusform>%n résultats</numerusform>
        </translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Déclencheur</translation>
    </message>
    <message>
        <source>Nobody listens.</source>
        <translation>Personne n’écoute.</translation>
    </message>
    <message>
        <source>Tavik Launcher is not running. Start it.</source>
        <translation>Tavik Launcher n’est pas lancé. Lancez-le.</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>Relâchement</translation>
    </message>
    <message>
        <source>Not needed: %1 is pressed once to open and once to close.</source>
        <translation>Inutile : %1 s’appuie une fois pour ouvrir et une fois pour fermer.</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Zone de notification</translation>
    </message>
    <message>
        <source>The panel shows what is described to it.</source>
        <translation>Le tableau de bord montre ce qu’on lui décrit.</translation>
    </message>
    <message>
        <source>The panel takes small windows, as older ones do.</source>
        <translation>Le tableau de bord accueille de petites fenêtres, comme les anciens.</translation>
    </message>
    <message>
        <source>No panel shows status items.</source>
        <translation>Aucun tableau de bord ne montre d’icônes d’état.</translation>
    </message>
    <message>
        <source>Add a tray to your panel; for GNOME there is an extension. Meanwhile this command opens the settings.</source>
        <translation>Ajoutez une zone de notification à votre tableau de bord ; pour GNOME, il existe une extension. En attendant, cette commande ouvre les réglages.</translation>
    </message>
    <message>
        <source>Autostart</source>
        <translation>Démarrage automatique</translation>
    </message>
    <message>
        <source>This session has started the launcher.</source>
        <translation>Cette session a démarré le lanceur.</translation>
    </message>
    <message>
        <source>This session is not known to read the autostart folder.</source>
        <translation>On ne sait pas si cette session lit le dossier de démarrage automatique.</translation>
    </message>
    <message>
        <source>Add this line to what your session starts.</source>
        <translation>Ajoutez cette ligne à ce que votre session démarre.</translation>
    </message>
    <message>
        <source>An entry in the autostart folder.</source>
        <translation>Une entrée dans le dossier de démarrage automatique.</translation>
    </message>
    <message>
        <source>There is no entry in the autostart folder.</source>
        <translation>Le dossier de démarrage automatique n’a pas d’entrée.</translation>
    </message>
    <message>
        <source>The launcher does not start when you log in.</source>
        <translation>Le lanceur ne démarre pas à l’ouverture de session.</translation>
    </message>
    <message>
        <source>The entry in the autostart folder is switched off.</source>
        <translation>L’entrée du dossier de démarrage automatique est désactivée.</translation>
    </message>
    <message>
        <source>The launcher&apos;s program is not where it was. Install it again.</source>
        <translation>Le programme du lanceur n’est plus à sa place. Installez-le de nouveau.</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>Pointeur</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Au-dessus des fenêtres</translation>
    </message>
    <message>
        <source>Running programs</source>
        <translation>Programmes en cours</translation>
    </message>
    <message>
        <source>Bringing to the front</source>
        <translation>Mise au premier plan</translation>
    </message>
    <message>
        <source>Set Up</source>
        <translation>Configurer</translation>
    </message>
    <message>
        <source>Choose Shortcut</source>
        <translation>Choisir un raccourci</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>Activer</translation>
    </message>
    <message>
        <source>This desktop gives the launcher all it needs.</source>
        <translation>Ce bureau donne au lanceur tout ce qu’il lui faut.</translation>
    </message>
    <message>
        <source>Needs your attention: %1 of %2.</source>
        <translation>Demande votre attention : %1 sur %2.</translation>
    </message>
    <message>
        <source>print what this desktop gives the launcher, and what not</source>
        <translation>afficher ce que ce bureau donne au lanceur, et ce qui manque</translation>
    </message>
    <message>
        <source>Check My Desktop</source>
        <translation>Vérifier mon bureau</translation>
    </message>
    <message>
        <source>What the launcher needs of this desktop, and how it has it.</source>
        <translation>Ce que le lanceur attend de ce bureau, et comment il l’obtient.</translation>
    </message>
    <message>
        <source>%1: works</source>
        <translation>%1 : fonctionne</translation>
    </message>
    <message>
        <source>%1: needs your attention</source>
        <translation>%1 : demande votre attention</translation>
    </message>
    <message>
        <source>Copy Line</source>
        <translation>Copier la ligne</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copié</translation>
    </message>
    <message>
        <source>Nobody tells of other programs&apos; windows.</source>
        <translation>Rien ne renseigne sur les fenêtres des autres programmes.</translation>
    </message>
    <message>
        <source>Programs are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>Les programmes ne sont vus actifs que par leur nom sur le bus de session ou par leur unité systemd.</translation>
    </message>
    <message>
        <source>Nobody brings other programs&apos; windows to the front.</source>
        <translation>Rien ne met au premier plan les fenêtres des autres programmes.</translation>
    </message>
    <message>
        <source>A program that runs is started once more, unless it has a name on the session bus.</source>
        <translation>Un programme actif est lancé une fois de plus, sauf s’il a un nom sur le bus de session.</translation>
    </message>
    <message>
        <source>Custom shortcuts in GNOME&apos;s keyboard settings.</source>
        <translation>Des raccourcis personnalisés dans les réglages du clavier de GNOME.</translation>
    </message>
    <message>
        <source>A global shortcut of KDE, which System Settings › Shortcuts lists.</source>
        <translation>Un raccourci global de KDE, visible dans Configuration du système › Raccourcis.</translation>
    </message>
    <message>
        <source>A script inside of KWin lists its windows.</source>
        <translation>Un script dans KWin énumère ses fenêtres.</translation>
    </message>
    <message>
        <source>The desktop does not answer.</source>
        <translation>Le bureau ne répond pas.</translation>
    </message>
    <message>
        <source>KWin brings a window forward as for KDE&apos;s own search.</source>
        <translation>KWin met une fenêtre au premier plan comme pour la recherche de KDE.</translation>
    </message>
    <message>
        <source>The desktop tells it, and so does the ring&apos;s own keyboard.</source>
        <translation>Le bureau le dit, et le clavier de l’anneau aussi.</translation>
    </message>
    <message>
        <source>Bindings that sway holds while Tavik Launcher runs.</source>
        <translation>Des raccourcis que sway garde tant que Tavik Launcher est lancé.</translation>
    </message>
    <message>
        <source>Its configuration uses the same keys for “%1”, which rests while Tavik Launcher runs.</source>
        <translation>Sa configuration donne les mêmes touches à « %1 », qui se repose tant que Tavik Launcher est lancé.</translation>
    </message>
    <message>
        <source>sway lists its windows.</source>
        <translation>sway énumère ses fenêtres.</translation>
    </message>
    <message>
        <source>sway&apos;s command to focus a window.</source>
        <translation>La commande de sway qui active une fenêtre.</translation>
    </message>
    <message>
        <source>Only the keys of the launcher&apos;s own windows.</source>
        <translation>Seulement les touches dans les fenêtres du lanceur.</translation>
    </message>
    <message>
        <source>The ring&apos;s own keyboard, while it is open.</source>
        <translation>Le clavier de l’anneau, tant qu’il est ouvert.</translation>
    </message>
    <message>
        <source>The compositor lists its windows for taskbars.</source>
        <translation>Le compositeur énumère ses fenêtres pour les barres des tâches.</translation>
    </message>
    <message>
        <source>A request to the compositor, as taskbars make it.</source>
        <translation>Une demande au compositeur, comme en font les barres des tâches.</translation>
    </message>
    <message>
        <source>An invisible surface on each screen, which the pointer enters.</source>
        <translation>Une surface invisible sur chaque écran, où entre le pointeur.</translation>
    </message>
    <message>
        <source>This session has no pointer.</source>
        <translation>Cette session n’a pas de pointeur.</translation>
    </message>
    <message>
        <source>A surface in the compositor&apos;s layer above all windows.</source>
        <translation>Une surface dans la couche du compositeur au-dessus des fenêtres.</translation>
    </message>
    <message>
        <source>The X server tells which modifiers are held.</source>
        <translation>Le serveur X dit quels modificateurs sont enfoncés.</translation>
    </message>
    <message>
        <source>The X server reserves the key for the launcher.</source>
        <translation>Le serveur X réserve la touche au lanceur.</translation>
    </message>
    <message>
        <source>The X server tells where it is.</source>
        <translation>Le serveur X dit où il est.</translation>
    </message>
    <message>
        <source>Beside a Wayland desktop it knows that only over its own windows: the ring may open elsewhere.</source>
        <translation>À côté d’un bureau Wayland, il ne le sait qu’au-dessus de ses propres fenêtres : l’anneau peut s’ouvrir ailleurs.</translation>
    </message>
    <message>
        <source>A window that the window manager keeps above the others.</source>
        <translation>Une fenêtre que le gestionnaire garde au-dessus des autres.</translation>
    </message>
    <message>
        <source>A window of its own above all others.</source>
        <translation>Une fenêtre à lui au-dessus de toutes les autres.</translation>
    </message>
    <message>
        <source>The window manager lists its windows.</source>
        <translation>Le gestionnaire de fenêtres énumère ses fenêtres.</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>Les programmes autres que ceux de X11 ne sont vus actifs que par leur nom sur le bus de session ou par leur unité systemd.</translation>
    </message>
    <message>
        <source>No window manager runs, or an old one that lists none.</source>
        <translation>Aucun gestionnaire de fenêtres, ou un ancien qui n’énumère rien.</translation>
    </message>
    <message>
        <source>A request to the window manager.</source>
        <translation>Une demande au gestionnaire de fenêtres.</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are started once more, unless they have a name on the session bus.</source>
        <translation>Les programmes autres que ceux de X11 sont lancés une fois de plus, sauf s’ils ont un nom sur le bus de session.</translation>
    </message>
    <message>
        <source>The desktop places the ring.</source>
        <translation>Le bureau place l’anneau.</translation>
    </message>
    <message>
        <source>This desktop tells no program where the pointer is.</source>
        <translation>Ce bureau ne dit à aucun programme où est le pointeur.</translation>
    </message>
    <message>
        <source>A window like any other.</source>
        <translation>Une fenêtre comme les autres.</translation>
    </message>
    <message>
        <source>This desktop lets no program keep a window above the others.</source>
        <translation>Ce bureau ne laisse aucun programme garder une fenêtre au-dessus des autres.</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives.</source>
        <translation>Un raccourci global que donne le bureau.</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives: %1.</source>
        <translation>Un raccourci global que donne le bureau : %1.</translation>
    </message>
    <message>
        <source>The desktop was asked for a shortcut and has given none. Check My Desktop in the settings can ask again.</source>
        <translation>Un raccourci a été demandé au bureau, qui n’en a donné aucun. « Vérifier mon bureau », dans les réglages, peut le redemander.</translation>
    </message>
    <message>
        <source>This desktop gives a program a shortcut after it has asked you.</source>
        <translation>Ce bureau donne un raccourci à un programme après vous avoir posé la question.</translation>
    </message>
    <message>
        <source>It knows none of modifiers alone, so the same modifiers with Space are proposed.</source>
        <translation>Il n’en connaît pas qui soient faits des seules touches de modification ; les mêmes touches avec Espace sont donc proposées.</translation>
    </message>
    <message>
        <source>Add this line to the configuration of your desktop: %1</source>
        <translation>Ajoutez cette ligne à la configuration de votre bureau : %1</translation>
    </message>
    <message>
        <source>A shortcut that Hyprland&apos;s configuration gives.</source>
        <translation>Un raccourci que donne la configuration de Hyprland.</translation>
    </message>
    <message>
        <source>Hyprland gives a shortcut to the program that its configuration names. It is active as soon as you have pressed it once.</source>
        <translation>Hyprland donne un raccourci au programme que nomme sa configuration. Il est actif dès que vous l’avez pressé une fois.</translation>
    </message>
</context>
</TS>
