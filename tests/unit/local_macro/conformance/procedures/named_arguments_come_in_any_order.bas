' Named arguments find their parameter by name, in any order and any case.
'> 1 2 3
Sub Show(a, b, c)
    Debug.Print a & " " & b & " " & c
End Sub

Sub main()
    Show 1, C:=3, b:=2
End Sub
