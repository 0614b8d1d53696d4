'> True False True
'> 5/4/2020
'> -1  0 
'> 1.5
'> Error 2001
'>  3 
Sub main()
    Debug.Print CBool("True") & " " & CBool(0) & " " & CBool("5")
    Debug.Print CDate("May 4, 2020")
    Debug.Print CInt(True); CInt(False)
    Debug.Print CStr(1.5)
    Debug.Print CStr(CVErr(2001))
    Debug.Print CLng("&H3")
End Sub
