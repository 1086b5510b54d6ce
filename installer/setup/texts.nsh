; The languages of the set-up program. All words come with NSIS but for these two texts.
!macro LANGUAGE NAME OPEN ADMINISTRATOR
  !insertmacro MUI_LANGUAGE ${NAME}
  LangString PROGRAM_IS_OPEN ${LANG_${NAME}} "${OPEN}"
  LangString NEEDS_ADMINISTRATOR ${LANG_${NAME}} "${ADMINISTRATOR}"
!macroend

!insertmacro LANGUAGE English \
  "${NAME} is running, perhaps in another user's session. Close it and try again." \
  "Only an administrator can install or remove ${NAME}."
!insertmacro LANGUAGE German \
  "${NAME} läuft noch, vielleicht in der Sitzung eines anderen Benutzers. Beenden Sie es und versuchen Sie es noch einmal." \
  "Nur ein Administrator kann ${NAME} installieren oder entfernen."
!insertmacro LANGUAGE French \
  "${NAME} est en cours d’exécution, peut-être dans la session d’un autre utilisateur. Fermez-le, puis réessayez." \
  "Seul un administrateur peut installer ou supprimer ${NAME}."
!insertmacro LANGUAGE Italian \
  "${NAME} è in esecuzione, forse nella sessione di un altro utente. Chiuderlo e riprovare." \
  "Solo un amministratore può installare o rimuovere ${NAME}."
!insertmacro LANGUAGE Spanish \
  "${NAME} se está ejecutando, quizá en la sesión de otro usuario. Ciérrelo e inténtelo de nuevo." \
  "Solo un administrador puede instalar o quitar ${NAME}."
!insertmacro LANGUAGE PortugueseBR \
  "O ${NAME} está em execução, talvez na sessão de outro usuário. Feche-o e tente novamente." \
  "Somente um administrador pode instalar ou remover o ${NAME}."
!insertmacro LANGUAGE Dutch \
  "${NAME} is nog geopend, misschien in de sessie van een andere gebruiker. Sluit het en probeer het opnieuw." \
  "Alleen een beheerder kan ${NAME} installeren of verwijderen."
!insertmacro LANGUAGE Polish \
  "Program ${NAME} jest uruchomiony, być może w sesji innego użytkownika. Zamknij go i spróbuj ponownie." \
  "Program ${NAME} może zainstalować lub usunąć tylko administrator."
!insertmacro LANGUAGE Czech \
  "Program ${NAME} je spuštěn, možná v relaci jiného uživatele. Ukončete jej a zkuste to znovu." \
  "Program ${NAME} může nainstalovat nebo odebrat pouze správce."
!insertmacro LANGUAGE Russian \
  "Программа ${NAME} запущена, возможно, в сеансе другого пользователя. Закройте её и повторите попытку." \
  "Установить или удалить ${NAME} может только администратор."
!insertmacro LANGUAGE Ukrainian \
  "Програму ${NAME} запущено, можливо, у сеансі іншого користувача. Закрийте її та спробуйте ще раз." \
  "Встановити або видалити ${NAME} може лише адміністратор."
!insertmacro LANGUAGE Turkish \
  "${NAME} çalışıyor; belki başka bir kullanıcının oturumunda açıktır. Kapatıp yeniden deneyin." \
  "${NAME} programını yalnızca bir yönetici kurabilir veya kaldırabilir."
!insertmacro LANGUAGE Japanese \
  "${NAME} が実行中です。別のユーザーのセッションで開かれている可能性があります。終了してから、もう一度実行してください。" \
  "${NAME} のインストールと削除は、管理者だけが行えます。"
!insertmacro LANGUAGE SimpChinese \
  "${NAME} 正在运行，可能是在其他用户的会话中。请将其关闭，然后重试。" \
  "只有管理员才能安装或删除 ${NAME}。"
!insertmacro LANGUAGE Korean \
  "${NAME}이(가) 실행 중입니다. 다른 사용자의 세션에서 열려 있을 수 있습니다. 닫은 후 다시 시도하십시오." \
  "관리자만 ${NAME}을(를) 설치하거나 제거할 수 있습니다."
