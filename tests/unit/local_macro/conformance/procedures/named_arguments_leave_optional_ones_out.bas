' With named arguments any optional parameter may be left out.
'> 1 d 9
Sub Show(a, Optional b = "d", Optional c = "e")
    Debug.Print a & " " & b & " " & c
End Sub

Sub main()
    Show c:=9, a:=1
End Sub
