' Assigning to Key gives an entry another key and keeps its value and place.
'> z,b 1
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d("a") = 1
    d("b") = 2
    d.Key("a") = "z"
    Debug.Print Join(d.Keys, ",") & " " & d("z")
End Sub
