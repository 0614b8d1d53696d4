' Keys and Items give arrays from 0 in the order of adding.
'> b,a 1,2 1
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d("b") = 1
    d("a") = 2
    Debug.Print Join(d.Keys, ",") & " " & d.Items()(0) & "," & d.Items()(1) & " " & UBound(d.Keys)
End Sub
