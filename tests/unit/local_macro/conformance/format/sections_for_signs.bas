' A second section is for negative numbers and shows no sign by itself, a third one is for zero.
'> 5 (5) nil
'> 5 5 minus
Sub main()
    Debug.Print Format(5, "0;(0);nil") & " " & Format(-5, "0;(0);nil") & " " & Format(0, "0;(0);""nil""")
    Debug.Print Format(5, "0;0 ""minus""") & " " & Format(-5, "0;0 ""minus""")
End Sub
