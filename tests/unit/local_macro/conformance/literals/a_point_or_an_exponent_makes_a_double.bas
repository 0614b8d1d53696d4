' A number with a point or with an exponent is a Double, whole or not.
'> Double 1
'> Double 5
'> Double 0.5
'> Double 1000
Sub main()
    Debug.Print TypeName(1.0) & " " & 1.0
    Debug.Print TypeName(5.) & " " & 5.
    Debug.Print TypeName(.5) & " " & .5
    Debug.Print TypeName(1E3) & " " & 1E3
End Sub
