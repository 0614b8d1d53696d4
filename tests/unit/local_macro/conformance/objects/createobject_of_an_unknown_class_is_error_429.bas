' A program id that nobody knows is error 429.
'! 429 ActiveX component can't create object
Sub main()
    Dim o As Object
    Set o = CreateObject("No.SuchThing")
End Sub
